@implementation Shape
- (void)draw {