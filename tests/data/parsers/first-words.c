static int first(int a) {
}
STATIC int second(int a) {
}
static inline int third(int a) {
}
static_inline int fourth(int a) {
}
extern int fifth(int a) {
}
