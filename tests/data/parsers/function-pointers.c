void sort(int *numbers, int (*compare)(int a, int b)) {
}

int (*chosen(int which))(int) {
}

void call(Operation operation) {
}
