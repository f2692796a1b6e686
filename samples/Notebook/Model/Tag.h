//
//  Tag.h
//  Notebook
//
//  Copyright © 2026 The Quillmeter developers.
//  Under the MIT licence; see the file LICENSE.
//

#import <Foundation/Foundation.h>

// A coloured word that notes can carry. Tags are compared by name, without case.
@interface Tag : NSObject <NSCopying>
{
    NSString *name;
    NSUInteger colourIndex;
}

@property (nonatomic, readonly) NSString *name;
@property (nonatomic, assign) NSUInteger colourIndex;

+ (Tag *)tagWithName:(NSString *)aName;
- (id)initWithName:(NSString *)aName;

@end
