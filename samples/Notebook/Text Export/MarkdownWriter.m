//
//  MarkdownWriter.m
//  Notebook
//
//  Copyright © 2026 The Quillmeter developers.
//  Under the MIT licence; see the file LICENSE.
//

#import "MarkdownWriter.h"
#import "DateFormatting.h"
#import "Note.h"
#import "Tag.h"

@interface MarkdownWriter ()
- (void)appendNote:(Note *)note;
- (void)appendFactsOfNote:(Note *)note;
- (void)appendBody:(NSString *)body;
@end

@implementation MarkdownWriter

- (id)initWithOptions:(MarkdownWriterOptions)someOptions
{
    self = [super init];
    if (self != nil)
    {
        options = someOptions;
        output = [[NSMutableString alloc] init];
    }
    return self;
}

- (void)dealloc
{
    [output release];
    [super dealloc];
}

- (NSString *)documentForNotes:(NSArray *)notes
{
    [output setString:@""];
    for (Note *note in notes)
    {
        if ([output length] > 0)
            [output appendString:@"\n---\n\n"];
        [self appendNote:note];
    }
    return [[output copy] autorelease];
}

- (BOOL)writeNotes:(NSArray *)notes toURL:(NSURL *)url error:(NSError **)error
{
    NSString *document = [self documentForNotes:notes];
    return [document writeToURL:url atomically:YES encoding:NSUTF8StringEncoding error:error];
}

- (void)appendNote:(Note *)note
{
    [output appendFormat:@"# %@\n\n", [MarkdownWriter escapedText:[note displayTitle]]];
    [self appendFactsOfNote:note];
    [self appendBody:note.body];
}

// One line below the heading: the date, then the tags, with dots between them.
// Nothing at all when neither is wanted.
- (void)appendFactsOfNote:(Note *)note
{
    NSMutableArray *facts = [NSMutableArray array];

    if (options & MarkdownWriterIncludeDates)
        [facts addObject:[NSString stringWithFormat:@"*%@*", NBLongDate(note.modified)]];

    if (options & MarkdownWriterIncludeTags)
    {
        for (Tag *tag in [note tags])
            [facts addObject:[NSString stringWithFormat:@"`%@`", tag.name]];
    }

    if ([facts count] > 0)
        [output appendFormat:@"%@\n\n", [facts componentsJoinedByString:@" · "]];
}

- (void)appendBody:(NSString *)body
{
    NSCharacterSet *blanks = [NSCharacterSet whitespaceCharacterSet];
    BOOL inParagraph = NO;

    for (NSString *line in [body componentsSeparatedByString:@"\n"])
    {
        NSString *text = [line stringByTrimmingCharactersInSet:blanks];
        if ([text length] == 0)
        {
            // Any number of empty lines ends a paragraph once.
            if (inParagraph)
                [output appendString:@"\n"];
            inParagraph = NO;
            continue;
        }

        if ([text hasPrefix:@"• "])
            [output appendFormat:@"- %@\n", [MarkdownWriter escapedText:[text substringFromIndex:2]]];
        else
            [output appendFormat:@"%@\n", [MarkdownWriter escapedText:text]];
        inParagraph = YES;
    }
}

// Escapes more than is strictly needed: an asterisk between blanks would be
// harmless, but a rule without exceptions is easier to trust.
+ (NSString *)escapedText:(NSString *)text
{
    static NSString * const special = @"\\`*_[]<>#";
    NSMutableString *escaped = [NSMutableString stringWithCapacity:[text length] + 8];

    for (NSUInteger i = 0; i < [text length]; i++)
    {
        NSString *character = [text substringWithRange:NSMakeRange(i, 1)];
        if ([special rangeOfString:character].location != NSNotFound)
            [escaped appendString:@"\\"];
        [escaped appendString:character];
    }
    return escaped;
}

@end
