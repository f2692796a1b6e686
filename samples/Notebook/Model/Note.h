//
//  Note.h
//  Notebook
//
//  Copyright © 2026 The Quillmeter developers.
//  Under the MIT licence; see the file LICENSE.
//

#import <Foundation/Foundation.h>

@class Tag;

extern NSString * const NoteDidChangeNotification;

/*
 One note: a title, a body of plain text, and any number of tags.

 A note knows nothing of where it is kept. It posts NoteDidChangeNotification
 after each change, and the store that holds it decides when to write.
 */
@interface Note : NSObject <NSCoding>
{
    NSString *identifier;
    NSString *title;
    NSString *body;
    NSDate *created;
    NSDate *modified;
    NSMutableArray *tags;
    BOOL pinned;
}

@property (nonatomic, readonly) NSString *identifier;
@property (nonatomic, copy) NSString *title;
@property (nonatomic, copy) NSString *body;
@property (nonatomic, readonly) NSDate *created;
@property (nonatomic, readonly) NSDate *modified;
@property (nonatomic, assign, getter=isPinned) BOOL pinned;

// Tags, in the order in which they were added.
- (NSArray *)tags;
- (void)addTag:(Tag *)tag;
- (void)removeTag:(Tag *)tag;
- (BOOL)hasTag:(Tag *)tag;

// The title, or the first line of the body when there is none.
- (NSString *)displayTitle;
- (NSString *)excerptOfLength:(NSUInteger)length;
- (NSUInteger)wordCount;

// Pinned notes first, then the latest change first.
- (NSComparisonResult)compareForList:(Note *)other;

@end
