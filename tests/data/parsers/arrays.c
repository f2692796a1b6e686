int sum(int numbers[], int count) {
}
int trace(int matrix[3][3]) {
}
int cube(int numbers[3][3][3]) {
}
int last(int count, int numbers[COUNT]) {
}
int first(char *names[]) {
}
