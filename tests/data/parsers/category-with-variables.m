@implementation Shape (Drawing)
{
    int width_;
}
- (void)draw {
}
@end
