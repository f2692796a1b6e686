int first(int a, char *b, int c, int d, int e, int f, int g, int h);
int second(int a);
static int third(int a, int b);
int fourth(int a) {
}
