@implementation Shape
- (BOOL)
    setWidth
        : ( int )
            width
    height
        :
            ( float * )
                height
    :(id)nameless
{
    return YES;
}
@end
