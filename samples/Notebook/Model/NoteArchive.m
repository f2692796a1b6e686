//
//  NoteArchive.m
//  Notebook
//
//  Copyright © 2026 The Quillmeter developers.
//  Under the MIT licence; see the file LICENSE.
//
//  The first file format: one property list a note. NoteStore replaced it.
//

#import "Note.h"

@interface NoteArchive : NSObject
+ (NSArray *)notesInFolder:(NSString *)folder;
@end

@implementation NoteArchive

+ (NSArray *)notesInFolder:(NSString *)folder
{
    NSMutableArray *notes = [NSMutableArray array];
    NSFileManager *manager = [NSFileManager defaultManager];

    for (NSString *name in [manager contentsOfDirectoryAtPath:folder error:NULL])
    {
        if (![[name pathExtension] isEqualToString:@"note"])
            continue;

        NSString *path = [folder stringByAppendingPathComponent:name];
        NSDictionary *values = [NSDictionary dictionaryWithContentsOfFile:path];
        Note *note = [[[Note alloc] init] autorelease];
        note.title = [values objectForKey:@"title"];
        note.body = [values objectForKey:@"body"];
        [notes addObject:note];
    }
    return notes;
}

@end
