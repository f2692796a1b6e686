int add(a, b)
int a;
int b;
{
    return a + b;
}

int twice(number)
int number;
{
    return 2 * number;
}

int main(arguments)
{
}
