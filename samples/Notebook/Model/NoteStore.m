//
//  NoteStore.m
//  Notebook
//
//  Copyright © 2026 The Quillmeter developers.
//  Under the MIT licence; see the file LICENSE.
//

#import "NoteStore.h"
#import "Note.h"
#import "Tag.h"

static const NSTimeInterval kSaveDelay = 4.0;
static NSString * const kErrorDomain = @"NotebookStore";

enum {
    kErrorNotAnArchive = 1,
    kErrorNewerFormat = 2
};

// Raised by one whenever an old version could no longer read the file.
static const NSInteger kFormatVersion = 3;

/*
 The file is a keyed archive of a dictionary:

   version   a number, see above
   notes     an array of Note

 Version 1 was a folder of property lists and is read no longer. Version 2 had
 no tags and is still read; only the current version is written.
 */

@interface NoteStore ()
- (void)noteChanged:(NSNotification *)notification;
- (void)scheduleSave;
- (void)saveTimerFired:(NSTimer *)timer;
- (NSError *)errorWithCode:(NSInteger)code description:(NSString *)text;
@end

@implementation NoteStore

@synthesize fileURL, dirty, delegate;

- (id)initWithFileURL:(NSURL *)url
{
    self = [super init];
    if (self != nil)
    {
        fileURL = [url copy];
        notes = [[NSMutableArray alloc] init];

        NSNotificationCenter *center = [NSNotificationCenter defaultCenter];
        [center addObserver:self
                   selector:@selector(noteChanged:)
                       name:NoteDidChangeNotification
                     object:nil];
    }
    return self;
}

- (void)dealloc
{
    [[NSNotificationCenter defaultCenter] removeObserver:self];
    [saveTimer invalidate];
    [saveTimer release];
    [notes release];
    [fileURL release];
    [super dealloc];
}

#pragma mark -
#pragma mark Reading and writing

- (BOOL)load:(NSError **)error
{
    NSData *data = [NSData dataWithContentsOfURL:fileURL options:0 error:error];
    if (data == nil)
        return NO;

    NSDictionary *root = nil;
    @try
    {
        root = [NSKeyedUnarchiver unarchiveObjectWithData:data];
    }
    @catch (NSException *exception)
    {
        NBLog(@"%@ is no archive: %@", fileURL, exception);
    }

    if (![root isKindOfClass:[NSDictionary class]])
    {
        if (error != NULL)
            *error = [self errorWithCode:kErrorNotAnArchive
                             description:NSLocalizedString(@"The notebook is damaged.", nil)];
        return NO;
    }
    if ([[root objectForKey:@"version"] integerValue] > kFormatVersion)
    {
        if (error != NULL)
            *error = [self errorWithCode:kErrorNewerFormat
                             description:NSLocalizedString(@"A newer Notebook wrote this file.", nil)];
        return NO;
    }

    [notes setArray:[root objectForKey:@"notes"]];
    dirty = NO;
    [delegate noteStoreDidChange:self];
    return YES;
}

- (BOOL)save:(NSError **)error
{
    [saveTimer invalidate];
    [saveTimer release];
    saveTimer = nil;

    if (!dirty)
        return YES;

    NSDictionary *root = [NSDictionary dictionaryWithObjectsAndKeys:
                          [NSNumber numberWithInteger:kFormatVersion], @"version",
                          notes, @"notes",
                          nil];
    NSData *data = [NSKeyedArchiver archivedDataWithRootObject:root];
    if (![data writeToURL:fileURL options:NSDataWritingAtomic error:error])
        return NO;

    dirty = NO;
    return YES;
}

// Each change puts the save off again, so that typing is never interrupted by it.
- (void)scheduleSave
{
    dirty = YES;
    [saveTimer invalidate];
    [saveTimer release];

    // The timer keeps this object alive until the notes are on disk.
    saveTimer = [[NSTimer scheduledTimerWithTimeInterval:kSaveDelay
                                                  target:self
                                                selector:@selector(saveTimerFired:)
                                                userInfo:nil
                                                 repeats:NO] retain];
}

- (void)saveTimerFired:(NSTimer *)timer
{
    NSError *error = nil;
    if ([self save:&error])
        return;

    if ([delegate respondsToSelector:@selector(noteStore:didFailWithError:)])
        [delegate noteStore:self didFailWithError:error];
    [self scheduleSave];    // a full disk may have room again later
}

- (NSError *)errorWithCode:(NSInteger)code description:(NSString *)text
{
    NSDictionary *info = [NSDictionary dictionaryWithObject:text forKey:NSLocalizedDescriptionKey];
    return [NSError errorWithDomain:kErrorDomain code:code userInfo:info];
}

#pragma mark -
#pragma mark Asking

- (NSArray *)notes
{
    return [notes sortedArrayUsingSelector:@selector(compareForList:)];
}

- (NSArray *)notesWithTag:(Tag *)tag
{
    NSMutableArray *found = [NSMutableArray array];
    for (Note *note in [self notes])
    {
        if ([note hasTag:tag])
            [found addObject:note];
    }
    return found;
}

- (NSArray *)allTags
{
    NSMutableSet *all = [NSMutableSet set];
    for (Note *note in notes)
        [all addObjectsFromArray:[note tags]];

    NSSortDescriptor *byName = [NSSortDescriptor sortDescriptorWithKey:@"name"
                                                             ascending:YES
                                                              selector:@selector(localizedStandardCompare:)];
    return [all sortedArrayUsingDescriptors:[NSArray arrayWithObject:byName]];
}

- (Note *)noteWithIdentifier:(NSString *)identifier
{
    for (Note *note in notes)
    {
        if ([note.identifier isEqualToString:identifier])
            return note;
    }
    return nil;
}

#pragma mark -
#pragma mark Changing

- (Note *)addNote
{
    Note *note = [[[Note alloc] init] autorelease];
    [notes addObject:note];
    [self scheduleSave];
    [delegate noteStoreDidChange:self];
    return note;
}

- (void)removeNote:(Note *)note
{
    // The caller may hold the note only through this list.
    [[note retain] autorelease];
    [notes removeObjectIdenticalTo:note];
    [self scheduleSave];
    [delegate noteStoreDidChange:self];
}

- (void)noteChanged:(NSNotification *)notification
{
    if ([notes indexOfObjectIdenticalTo:[notification object]] == NSNotFound)
        return;
    [self scheduleSave];
    [delegate noteStoreDidChange:self];
}

@end
