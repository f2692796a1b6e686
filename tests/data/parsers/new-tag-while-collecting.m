@implementation Shape
- (void)draw
+ (void)erase {
}
-
+ (void)fill {
}
+ (void)hide {
}
@end
