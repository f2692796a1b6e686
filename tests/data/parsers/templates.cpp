template <typename T>
T largest(T a, T b) {
    return a < b ? b : a;
}

template <typename T>
void show(T what) {
}

std::vector<int> numbers(int count) {
}

int count(std::vector<int> numbers) {
}

template <class Item> Item first(Item a, Item b)
{
}
