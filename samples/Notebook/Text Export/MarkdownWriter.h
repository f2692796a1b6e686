//
//  MarkdownWriter.h
//  Notebook
//
//  Copyright © 2026 The Quillmeter developers.
//  Under the MIT licence; see the file LICENSE.
//

#import <Foundation/Foundation.h>

@class Note;

enum {
    MarkdownWriterIncludeTags  = 1 << 0,
    MarkdownWriterIncludeDates = 1 << 1
};
typedef NSUInteger MarkdownWriterOptions;

// Writes notes as one Markdown document, a heading for each.
@interface MarkdownWriter : NSObject
{
    MarkdownWriterOptions options;
    NSMutableString *output;
}

- (id)initWithOptions:(MarkdownWriterOptions)someOptions;
- (NSString *)documentForNotes:(NSArray *)notes;
- (BOOL)writeNotes:(NSArray *)notes toURL:(NSURL *)url error:(NSError **)error;

+ (NSString *)escapedText:(NSString *)text;

@end
