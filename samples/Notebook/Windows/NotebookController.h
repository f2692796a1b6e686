//
//  NotebookController.h
//  Notebook
//
//  Copyright © 2026 The Quillmeter developers.
//  Under the MIT licence; see the file LICENSE.
//

#import <Cocoa/Cocoa.h>
#import "NoteStore.h"

@class NoteEditor;
@class SearchBridge;

// The main window: tags at the left, the list of notes, and the editor.
@interface NotebookController : NSWindowController <NoteStoreDelegate, NSTableViewDataSource, NSTableViewDelegate>
{
    IBOutlet NSTableView *noteList;
    IBOutlet NSSearchField *searchField;
    IBOutlet NoteEditor *editor;
    IBOutlet NSTextField *statusLine;

    NoteStore *store;
    SearchBridge *search;
    NSArray *shownNotes;
}

- (IBAction)newNote:(id)sender;
- (IBAction)deleteNote:(id)sender;
- (IBAction)togglePin:(id)sender;
- (IBAction)search:(id)sender;
- (IBAction)exportAsMarkdown:(id)sender;

@end
