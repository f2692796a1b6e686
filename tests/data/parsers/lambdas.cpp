int main() {
  auto twice = [](int number) { return 2 * number; };
  auto thrice = [=](int number) mutable {
  };
}
