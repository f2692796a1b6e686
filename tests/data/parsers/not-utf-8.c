/* café */
int main(void) {
}
