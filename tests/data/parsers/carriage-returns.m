@implementation Shape

- (void)draw
{
}

+ (id)shape {
}
int twice(int number)
{
}
@end
