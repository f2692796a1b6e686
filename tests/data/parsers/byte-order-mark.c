static int twice(int number) {
}
