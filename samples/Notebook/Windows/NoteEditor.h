//
//  NoteEditor.h
//  Notebook
//
//  Copyright © 2026 The Quillmeter developers.
//  Under the MIT licence; see the file LICENSE.
//

#import <Cocoa/Cocoa.h>

@class Note;

/*
 The text view in which a note is written.

 It has grown: besides the text it now does lists, check boxes, links, the
 find bar, the count of words and the typewriter mode.
 */
@interface NoteEditor : NSTextView
{
    Note *note;
    NSTimer *commitTimer;

    // Find bar
    IBOutlet NSView *findBar;
    IBOutlet NSTextField *findField;
    IBOutlet NSTextField *findStatus;
    NSArray *findMatches;
    NSUInteger findPosition;

    // Counting
    IBOutlet NSTextField *countLabel;

    BOOL typewriterMode;
    BOOL loading;
}

@property (nonatomic, assign) BOOL typewriterMode;

- (void)setNote:(Note *)aNote;
- (Note *)note;

- (IBAction)toggleBulletList:(id)sender;
- (IBAction)toggleNumberedList:(id)sender;
- (IBAction)toggleCheckBox:(id)sender;
- (IBAction)indentLines:(id)sender;
- (IBAction)outdentLines:(id)sender;
- (IBAction)moveLineUp:(id)sender;
- (IBAction)moveLineDown:(id)sender;
- (IBAction)duplicateLine:(id)sender;
- (IBAction)insertDate:(id)sender;
- (IBAction)showFindBar:(id)sender;
- (IBAction)hideFindBar:(id)sender;
- (IBAction)findNext:(id)sender;
- (IBAction)findPrevious:(id)sender;

@end
