@implementation Shape

- (void)setWidth:(int)width
          height:(int)height {
}

@end
