@implementation Shape
- (void)draw                                                                                                                   - (void)hide {
- (void)show {
