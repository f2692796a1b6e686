#ifdef SLOW
#endif
if (fast) {
} else if (slow) {
}
int main(void) {
    if (fast) {
    }
    while (slow) {
    }
    for (int i = 0; i < 3; ++i) {
    }
}
