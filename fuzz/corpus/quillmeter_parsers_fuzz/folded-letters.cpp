ſtatic int first(int a) {
}
static int Kelvin(int ſ) {
}
int straße(int a) {
}
int second(int K) {
}
