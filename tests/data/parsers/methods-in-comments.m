@implementation Shape
// - (void)oldDraw {
/* - (void)olderDraw { */
/*
- (void)oldestDraw {
*/
- (void)draw { // draws
}
- (void)hide {
}
@end
