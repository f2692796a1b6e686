@implementation Shape

- (void)draw
{
    [self outline];
}

+
(Shape *)
shape
{
    return nil;
}

@end
