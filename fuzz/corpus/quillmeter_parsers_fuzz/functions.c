#include <stdio.h>

static int add(int a, int b) {
    return a + b;
}

int subtract(int a, int b)
{
    return a - b;
}

void nothing() {
}

int main(void) {
    return 0;
}
