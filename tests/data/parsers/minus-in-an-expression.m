@implementation Shape
- (int)width {
    return right
        - left;
}
- (int)height {
    while (1) {
    }
}
- (int)depth {
}
@end
