@protocol Drawing <NSObject>
- (void)draw;
@optional
- (void)hide;
@end

static int unused;

@implementation Shape
- (void)draw {
}
- (void)hide {
}
@end
