int first(const char *text) {
}
int second(int count, const char *text) {
}
