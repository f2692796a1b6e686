//
//  Tag.m
//  Notebook
//
//  Copyright © 2026 The Quillmeter developers.
//  Under the MIT licence; see the file LICENSE.
//

#import "Tag.h"

@implementation Tag

@synthesize name, colourIndex;

+ (Tag *)tagWithName:(NSString *)aName
{
    return [[[Tag alloc] initWithName:aName] autorelease];
}

- (id)initWithName:(NSString *)aName
{
    self = [super init];
    if (self != nil)
    {
        NSCharacterSet *blanks = [NSCharacterSet whitespaceAndNewlineCharacterSet];
        name = [[aName stringByTrimmingCharactersInSet:blanks] copy];
    }
    return self;
}

- (void)dealloc
{
    [name release];
    [super dealloc];
}

- (id)copyWithZone:(NSZone *)zone
{
    Tag *copy = [[Tag allocWithZone:zone] initWithName:name];
    copy.colourIndex = colourIndex;
    return copy;
}

- (BOOL)isEqual:(id)other
{
    if (![other isKindOfClass:[Tag class]])
        return NO;
    return [name caseInsensitiveCompare:[other name]] == NSOrderedSame;
}

- (NSUInteger)hash
{
    return [[name lowercaseString] hash];
}

- (NSString *)description
{
    return [NSString stringWithFormat:@"#%@", name];
}

@end
