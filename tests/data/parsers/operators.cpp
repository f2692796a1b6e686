bool operator==(Shape a, Shape b) {
}
Shape operator+(Shape a, Shape b) {
}
operator bool() {
}
int operator()(int a) {
}
