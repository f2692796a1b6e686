@interface Shape : NSObject
- (void)draw;
+ (Shape *)shape;
@end

@implementation Shape

- (void)draw {
}

- (void)hide {
}

@end
