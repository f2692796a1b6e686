#import "Shape.h"

@implementation Shape

- (void)viewDidLoad {
    [super viewDidLoad];
}

+ (id)shared {
    return nil;
}

@end
