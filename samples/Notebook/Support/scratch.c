// Trying out how slow the naive search is. Not part of the application.
#include <stdio.h>
#include <string.h>
#include <time.h>

int main(void)
{
    static char text[1 << 20];
    memset(text, 'a', sizeof text - 1);

    clock_t start = clock();
    const char *found = strstr(text, "aaaaaaab");
    double seconds = (double)(clock() - start) / CLOCKS_PER_SEC;

    printf("%s after %.3f s\n", found != NULL ? "found" : "not found", seconds);
    return 0;
}
