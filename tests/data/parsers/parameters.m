@implementation Shape
- (void)setName:(NSString *)name {
}
- (BOOL)write:(id)data to:(NSURL *)url error:(NSError **)error {
}
- (id<Copying>)copyOf:(id<Copying>)other{
}
- ( int ) plus : ( int ) other ;{
}
- (Shape &)mergedWith:(Shape &)left and:(Shape &&)right {
}
+ (id)shapesWithNames:(NSString *)first, ... {
}
+ (id)shapeNamed:(NSString *)first with:(id)second, ... {
}
@end
