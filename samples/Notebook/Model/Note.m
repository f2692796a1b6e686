//
//  Note.m
//  Notebook
//
//  Copyright © 2026 The Quillmeter developers.
//  Under the MIT licence; see the file LICENSE.
//

#import "Note.h"
#import "Tag.h"

NSString * const NoteDidChangeNotification = @"NoteDidChangeNotification";

static NSString * const kUntitled = @"Untitled";

@interface Note ()
- (void)touch;
@end

@implementation Note

@synthesize identifier, title, body, created, modified, pinned;

#pragma mark -
#pragma mark Life cycle

- (id)init
{
    self = [super init];
    if (self != nil)
    {
        CFUUIDRef uuid = CFUUIDCreate(NULL);
        identifier = (NSString *)CFUUIDCreateString(NULL, uuid);
        CFRelease(uuid);

        title = [@"" copy];
        body = [@"" copy];
        created = [[NSDate date] retain];
        modified = [created retain];
        tags = [[NSMutableArray alloc] init];
    }
    return self;
}

- (id)initWithCoder:(NSCoder *)coder
{
    self = [super init];
    if (self != nil)
    {
        identifier = [[coder decodeObjectForKey:@"identifier"] copy];
        title = [[coder decodeObjectForKey:@"title"] copy];
        body = [[coder decodeObjectForKey:@"body"] copy];
        created = [[coder decodeObjectForKey:@"created"] retain];
        modified = [[coder decodeObjectForKey:@"modified"] retain];
        pinned = [coder decodeBoolForKey:@"pinned"];

        // Notes written before tags existed have no list of them.
        tags = [[NSMutableArray alloc] init];
        for (NSString *name in [coder decodeObjectForKey:@"tags"])
            [tags addObject:[Tag tagWithName:name]];
    }
    return self;
}

- (void)encodeWithCoder:(NSCoder *)coder
{
    [coder encodeObject:identifier forKey:@"identifier"];
    [coder encodeObject:title forKey:@"title"];
    [coder encodeObject:body forKey:@"body"];
    [coder encodeObject:created forKey:@"created"];
    [coder encodeObject:modified forKey:@"modified"];
    [coder encodeBool:pinned forKey:@"pinned"];
    [coder encodeObject:[tags valueForKey:@"name"] forKey:@"tags"];
}

- (void)dealloc
{
    [identifier release];
    [title release];
    [body release];
    [created release];
    [modified release];
    [tags release];
    [super dealloc];
}

#pragma mark -
#pragma mark Changes

- (void)touch
{
    [modified release];
    modified = [[NSDate date] retain];
    [[NSNotificationCenter defaultCenter] postNotificationName:NoteDidChangeNotification object:self];
}

- (void)setTitle:(NSString *)aTitle
{
    if ([title isEqualToString:aTitle])
        return;
    [title release];
    title = [aTitle copy];
    [self touch];
}

- (void)setBody:(NSString *)aBody
{
    if ([body isEqualToString:aBody])
        return;
    [body release];
    body = [aBody copy];
    [self touch];
}

- (NSArray *)tags
{
    return [[tags copy] autorelease];
}

- (void)addTag:(Tag *)tag
{
    if ([tags containsObject:tag])
        return;
    [tags addObject:tag];
    [self touch];
}

- (void)removeTag:(Tag *)tag
{
    if (![tags containsObject:tag])
        return;
    [tags removeObject:tag];
    [self touch];
}

- (BOOL)hasTag:(Tag *)tag
{
    return [tags containsObject:tag];
}

#pragma mark -
#pragma mark Showing

- (NSString *)displayTitle
{
    if ([title length] > 0)
        return title;

    NSRange end = [body rangeOfCharacterFromSet:[NSCharacterSet newlineCharacterSet]];
    NSString *line = end.location == NSNotFound ? body : [body substringToIndex:end.location];
    return [line length] > 0 ? line : kUntitled;
}

- (NSString *)excerptOfLength:(NSUInteger)length
{
    if ([body length] <= length)
        return body;

    // Never cut through a pair of surrogates or an accent: "café" must not end as "cafe".
    NSRange whole = [body rangeOfComposedCharacterSequenceAtIndex:length];
    return [[body substringToIndex:whole.location] stringByAppendingString:@"…"];
}

- (NSUInteger)wordCount
{
    __block NSUInteger count = 0;
    [body enumerateSubstringsInRange:NSMakeRange(0, [body length])
                             options:NSStringEnumerationByWords | NSStringEnumerationSubstringNotRequired
                          usingBlock:^(NSString *word, NSRange range, NSRange enclosing, BOOL *stop) {
                              count++;
                          }];
    return count;
}

// Both dates are read from the same clock, so two notes are equal only when
// they were made by one import. Their order does not matter then.
- (NSComparisonResult)compareForList:(Note *)other
{
    if (pinned != other.pinned)
        return pinned ? NSOrderedAscending : NSOrderedDescending;
    return [other.modified compare:modified];
}

@end
