@implementation Shape
- (const char *)name {
}
- (NSArray<NSString *> *)names {
}
- (void (^)(int))handler {
}
- (unsigned int)count {
}
- (void)eachName:(void (^)(NSString *name))block {
}
- (id)last {
}
@end
