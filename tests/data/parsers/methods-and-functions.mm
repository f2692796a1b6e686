static int twice(int number) {
    return 2 * number;
}

int thrice(int number) {
    return 3 * number;
}

@implementation Shape
- (int)width {
    return twice(1);
}
+ (int)sides {
    return thrice(1);
}
@end
