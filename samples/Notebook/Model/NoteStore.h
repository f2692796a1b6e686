//
//  NoteStore.h
//  Notebook
//
//  Copyright © 2026 The Quillmeter developers.
//  Under the MIT licence; see the file LICENSE.
//

#import <Foundation/Foundation.h>

@class Note;
@class Tag;
@class NoteStore;

@protocol NoteStoreDelegate <NSObject>
- (void)noteStoreDidChange:(NoteStore *)store;
@optional
- (void)noteStore:(NoteStore *)store didFailWithError:(NSError *)error;
@end

// Keeps the notes of one notebook and writes them to one file.
//
// Changes are written a few seconds after the last one, and at once when the
// application quits. The file is replaced atomically, so a crash in the middle
// leaves the previous version in place.
@interface NoteStore : NSObject
{
    NSURL *fileURL;
    NSMutableArray *notes;
    NSTimer *saveTimer;
    BOOL dirty;
    id <NoteStoreDelegate> delegate;
}

@property (nonatomic, readonly) NSURL *fileURL;
@property (nonatomic, readonly, getter=isDirty) BOOL dirty;
@property (nonatomic, assign) id <NoteStoreDelegate> delegate;

- (id)initWithFileURL:(NSURL *)url;

- (BOOL)load:(NSError **)error;
- (BOOL)save:(NSError **)error;

- (NSArray *)notes;
- (NSArray *)notesWithTag:(Tag *)tag;
- (NSArray *)allTags;
- (Note *)noteWithIdentifier:(NSString *)identifier;

- (Note *)addNote;
- (void)removeNote:(Note *)note;

@end
