//
//  NotebookController.m
//  Notebook
//
//  Copyright © 2026 The Quillmeter developers.
//  Under the MIT licence; see the file LICENSE.
//

#import "NotebookController.h"
#import "DateFormatting.h"
#import "MarkdownWriter.h"
#import "Note.h"
#import "NoteEditor.h"
#import "SearchBridge.h"

@interface NotebookController ()
- (Note *)selectedNote;
- (void)reload;
- (void)selectNote:(Note *)note;
@end

@implementation NotebookController

- (void)awakeFromNib
{
    NSString *folder = [NSSearchPathForDirectoriesInDomains(NSApplicationSupportDirectory,
                                                            NSUserDomainMask, YES) objectAtIndex:0];
    NSString *path = [folder stringByAppendingPathComponent:@"Notebook/Notes.notebook"];

    search = [[SearchBridge alloc] init];
    store = [[NoteStore alloc] initWithFileURL:[NSURL fileURLWithPath:path]];
    store.delegate = self;

    NSError *error = nil;
    if (![store load:&error])
        NBLog(@"starting with an empty notebook: %@", error);
    [self reload];
}

- (void)dealloc
{
    store.delegate = nil;
    [store release];
    [search release];
    [shownNotes release];
    [super dealloc];
}

#pragma mark -
#pragma mark Actions

- (IBAction)newNote:(id)sender
{
    // A search would hide the new note at once.
    [searchField setStringValue:@""];
    [self selectNote:[store addNote]];
    [[self window] makeFirstResponder:editor];
}

- (IBAction)deleteNote:(id)sender    
{
    Note *note = [self selectedNote];
    if (note == nil)
        return;

    NSAlert *alert = [[[NSAlert alloc] init] autorelease];
    [alert setMessageText:[NSString stringWithFormat:NSLocalizedString(@"Delete “%@”?", nil), [note displayTitle]]];
    [alert setInformativeText:NSLocalizedString(@"This cannot be undone.", nil)];
    [alert addButtonWithTitle:NSLocalizedString(@"Delete", nil)];
    [alert addButtonWithTitle:NSLocalizedString(@"Cancel", nil)];
    if ([alert runModal] == NSAlertFirstButtonReturn)
        [store removeNote:note];
}

- (IBAction)togglePin:(id)sender
{
    Note *note = [self selectedNote];
    note.pinned = !note.pinned;
    [self reload];
    [self selectNote:note];
}

- (IBAction)search:(id)sender
{
    [self reload];
}

- (IBAction)exportAsMarkdown:(id)sender
{
    NSSavePanel *panel = [NSSavePanel savePanel];
    [panel setAllowedFileTypes:[NSArray arrayWithObject:@"md"]];
    [panel setNameFieldStringValue:[NSString stringWithFormat:@"Notes %@", NBFileDate([NSDate date])]];
    if ([panel runModal] != NSFileHandlingPanelOKButton)
        return;

    MarkdownWriterOptions options = MarkdownWriterIncludeTags | MarkdownWriterIncludeDates;
    MarkdownWriter *writer = [[[MarkdownWriter alloc] initWithOptions:options] autorelease];
    NSError *error = nil;
    if (![writer writeNotes:shownNotes toURL:[panel URL] error:&error])
        [self presentError:error];
}

#pragma mark -
#pragma mark The list

- (Note *)selectedNote
{
    NSInteger row = [noteList selectedRow];
    return row < 0 ? nil : [shownNotes objectAtIndex:row];
}

- (void)selectNote:(Note *)note
{
    NSUInteger row = [shownNotes indexOfObjectIdenticalTo:note];
    if (row == NSNotFound)
        return;
    [noteList selectRowIndexes:[NSIndexSet indexSetWithIndex:row] byExtendingSelection:NO];
    [noteList scrollRowToVisible:row];
}

// Shows the notes that match the search, or all of them without one.
//
// The index is built anew each time. That is fast enough up to a few thousand
// notes, and it cannot go stale.
- (void)reload
{
    NSString *query = [searchField stringValue];  
    NSArray *notes = [store notes];

    if ([query length] > 0)
    {
        NSMutableArray *found = [NSMutableArray array];
        [search rebuildFromStore:store];
        for (NSString *identifier in [search identifiersForQuery:query])
            [found addObject:[store noteWithIdentifier:identifier]];
        notes = found;
    }

    [shownNotes autorelease];
    shownNotes = [notes copy];
    [noteList reloadData];
    [statusLine setStringValue:[NSString stringWithFormat:NSLocalizedString(@"%lu notes", nil),
                                (unsigned long)[shownNotes count]]];
}

- (NSInteger)numberOfRowsInTableView:(NSTableView *)table
{
    return [shownNotes count];
}

- (id)tableView:(NSTableView *)table objectValueForTableColumn:(NSTableColumn *)column row:(NSInteger)row
{
    Note *note = [shownNotes objectAtIndex:row];
    if ([[column identifier] isEqualToString:@"modified"])
        return NBRelativeDate(note.modified, [NSDate date]);
    return note.pinned ? [@"★ " stringByAppendingString:[note displayTitle]] : [note displayTitle];
}

- (void)tableViewSelectionDidChange:(NSNotification *)notification
{
    [editor setNote:[self selectedNote]];
}

#pragma mark -
#pragma mark The store

// The rows may have changed their order, so the selection follows the note.
- (void)noteStoreDidChange:(NoteStore *)aStore
{
    Note *selected = [[[self selectedNote] retain] autorelease];
    [self reload];
    [self selectNote:selected];
}

- (void)noteStore:(NoteStore *)aStore didFailWithError:(NSError *)error
{
    [statusLine setStringValue:[error localizedDescription]];
}

@end
