char *first(char *a) {
}
char* second(char* a) {
}
char **third(char **a) {
}
char * fourth(int a, char * b) {
}
static char ** fifth(int a, char ** b) {
}
unsigned long sixth(int a, unsigned long b) {
}
