//
//  NoteEditor.m
//  Notebook
//
//  Copyright © 2026 The Quillmeter developers.
//  Under the MIT licence; see the file LICENSE.
//

#import "NoteEditor.h"
#import "DateFormatting.h"
#import "Note.h"

static NSString * const kBullet = @"• ";
static NSString * const kBoxEmpty = @"☐ ";
static NSString * const kBoxTicked = @"☑ ";
static NSString * const kIndent = @"    ";

static const NSTimeInterval kCommitDelay = 0.8;
static const CGFloat kTextInset = 12.0;

@interface NoteEditor ()
- (void)commit;
- (void)scheduleCommit;
- (void)updateCount;
- (void)updateFind;
- (void)showMatch;
- (void)highlightLinks;
- (void)centreInsertionPoint;
- (NSRange)selectedLines;
- (void)changeSelectedLines:(NSString *(^)(NSString *line, NSUInteger number))change;
- (NSString *)lineWithoutMarker:(NSString *)line;
- (NSString *)markerOfLine:(NSString *)line;
- (NSUInteger)indentOfLine:(NSString *)line;
- (BOOL)continueList;
@end

/*
 The parts of this class, for whoever takes it apart one day:

   the note        setNote:, commit and the timer between them
   lines           changeSelectedLines: and what reads a line's marker
   lists           bullets, numbers, check boxes, return and tab in them
   moving lines    up, down, duplicate
   finding         the find bar and its matches
   the rest        links, the count of words, typewriter mode

 Lists and finding know nothing of each other and could become classes of
 their own; both need only the text and the selection.
 */

@implementation NoteEditor

@synthesize typewriterMode;

#pragma mark -
#pragma mark Life cycle

- (void)awakeFromNib
{
	[self setTextContainerInset:NSMakeSize(kTextInset, kTextInset)];
	[self setFont:[NSFont userFontOfSize:14.0]];
	[self setRichText:NO];
	[self setAllowsUndo:YES];
	[self setAutomaticQuoteSubstitutionEnabled:YES];
	[self setEditable:NO];
	[findBar setHidden:YES];
	[self updateCount];
}

- (void)dealloc
{
	[commitTimer invalidate];
	[commitTimer release];
	[findMatches release];
	[note release];
	[super dealloc];
}

#pragma mark -
#pragma mark The note

- (Note *)note
{
	return note;
}

- (void)setNote:(Note *)aNote
{
	if (aNote == note)
		return;

	// What was typed last must reach the old note before it goes.
	[self commit];

	[note release];
	note = [aNote retain];

	loading = YES;
	[self setString:note != nil ? note.body : @""];
	[self setEditable:note != nil];
	[self setSelectedRange:NSMakeRange(0, 0)];
	[[self undoManager] removeAllActions];
	loading = NO;

	[self highlightLinks];
	[self updateCount];
	[self updateFind];
}

- (void)commit
{
	[commitTimer invalidate];
	[commitTimer release];
	commitTimer = nil;

	if (note != nil)
		note.body = [self string];
}

- (void)scheduleCommit
{
	[commitTimer invalidate];
	[commitTimer release];
	commitTimer = [[NSTimer scheduledTimerWithTimeInterval:kCommitDelay
	                                                target:self
	                                              selector:@selector(commit)
	                                              userInfo:nil
	                                               repeats:NO] retain];
}

- (void)didChangeText
{
	[super didChangeText];
	if (loading)
		return;

	[self scheduleCommit];
	[self highlightLinks];
	[self updateCount];
	[self updateFind];
	if (typewriterMode)
		[self centreInsertionPoint];
}

- (BOOL)resignFirstResponder
{
	[self commit];
	return [super resignFirstResponder];
}

#pragma mark -
#pragma mark Lines

// The full lines that the selection touches, the last line break left out.
- (NSRange)selectedLines
{
	NSString *text = [self string];
	NSRange lines = [text lineRangeForRange:[self selectedRange]];
	if (lines.length > 0)
	{
		unichar last = [text characterAtIndex:NSMaxRange(lines) - 1];
		if (last == '\n')
			lines.length--;
	}
	return lines;
}

// Replaces each selected line by what the block makes of it, as one step of undo.
- (void)changeSelectedLines:(NSString *(^)(NSString *line, NSUInteger number))change
{
	NSRange range = [self selectedLines];
	NSArray *lines = [[[self string] substringWithRange:range] componentsSeparatedByString:@"\n"];
	NSMutableArray *changed = [NSMutableArray arrayWithCapacity:[lines count]];

	NSUInteger number = 0;
	for (NSString *line in lines)
		[changed addObject:change(line, ++number)];

	NSString *replacement = [changed componentsJoinedByString:@"\n"];
	if (![self shouldChangeTextInRange:range replacementString:replacement])
		return;

	[self replaceCharactersInRange:range withString:replacement];
	[self didChangeText];
	[self setSelectedRange:NSMakeRange(range.location, [replacement length])];
}

- (NSUInteger)indentOfLine:(NSString *)line
{
	NSUInteger indent = 0;
	while (indent < [line length] && [line characterAtIndex:indent] == ' ')
		indent++;
	return indent;
}

// The marker of a list that a line begins with, or nil: "• ", "☐ ", "☑ " or "12. ".
- (NSString *)markerOfLine:(NSString *)line
{
	NSString *text = [line substringFromIndex:[self indentOfLine:line]];
	for (NSString *marker in [NSArray arrayWithObjects:kBullet, kBoxEmpty, kBoxTicked, nil])
	{
		if ([text hasPrefix:marker])
			return marker;
	}

	NSRange number = [text rangeOfString:@"^[0-9]+\\. " options:NSRegularExpressionSearch];
	return number.location == NSNotFound ? nil : [text substringWithRange:number];
}

- (NSString *)lineWithoutMarker:(NSString *)line
{
	NSString *marker = [self markerOfLine:line];
	if (marker == nil)
		return line;

	NSUInteger indent = [self indentOfLine:line];
	NSString *blanks = [line substringToIndex:indent];
	return [blanks stringByAppendingString:[line substringFromIndex:indent + [marker length]]];
}

- (NSString *)line:(NSString *)line withMarker:(NSString *)marker
{
	NSString *bare = [self lineWithoutMarker:line];
	NSUInteger indent = [self indentOfLine:bare];
	return [NSString stringWithFormat:@"%@%@%@",
	        [bare substringToIndex:indent], marker, [bare substringFromIndex:indent]];
}

#pragma mark -
#pragma mark Lists

- (IBAction)toggleBulletList:(id)sender
{
	[self changeSelectedLines:^(NSString *line, NSUInteger number) {
		if ([[self markerOfLine:line] isEqualToString:kBullet])
			return [self lineWithoutMarker:line];
		return [self line:line withMarker:kBullet];
	}];
}

- (IBAction)toggleNumberedList:(id)sender
{
	[self changeSelectedLines:^(NSString *line, NSUInteger number) {
		NSString *marker = [self markerOfLine:line];
		if ([marker length] > 0 && isdigit([marker characterAtIndex:0]))
			return [self lineWithoutMarker:line];
		return [self line:line withMarker:[NSString stringWithFormat:@"%lu. ", (unsigned long)number]];
	}];
}

/*
 A line without a box gets an empty one, an empty box is ticked, and a ticked
 one goes away again.
 */
- (IBAction)toggleCheckBox:(id)sender
{
	[self changeSelectedLines:^(NSString *line, NSUInteger number) {
		NSString *marker = [self markerOfLine:line];
		if ([marker isEqualToString:kBoxEmpty])
			return [self line:line withMarker:kBoxTicked];
		if ([marker isEqualToString:kBoxTicked])
			return [self lineWithoutMarker:line];
		return [self line:line withMarker:kBoxEmpty];
	}];
}

- (IBAction)indentLines:(id)sender
{
	[self changeSelectedLines:^(NSString *line, NSUInteger number) {
		return [kIndent stringByAppendingString:line];
	}];
}

- (IBAction)outdentLines:(id)sender
{
	[self changeSelectedLines:^(NSString *line, NSUInteger number) {
		NSUInteger indent = MIN([self indentOfLine:line], [kIndent length]);
		return [line substringFromIndex:indent];
	}];
}

// Return inside a list starts the next entry; return on an empty entry ends the list.
- (BOOL)continueList
{
	NSRange selection = [self selectedRange];
	if (selection.length > 0)
		return NO;

	NSRange range = [[self string] lineRangeForRange:selection];
	NSString *line = [[[self string] substringWithRange:range]
	                  stringByTrimmingCharactersInSet:[NSCharacterSet newlineCharacterSet]];
	NSString *marker = [self markerOfLine:line];
	if (marker == nil)
		return NO;

	NSUInteger indent = [self indentOfLine:line];
	if ([line length] == indent + [marker length])
	{
		[self insertText:@"" replacementRange:NSMakeRange(range.location, [line length])];
		return YES;
	}

	NSString *next = marker;
	if ([marker isEqualToString:kBoxTicked])
		next = kBoxEmpty;
	else if (isdigit([marker characterAtIndex:0]))
		next = [NSString stringWithFormat:@"%ld. ", (long)[marker integerValue] + 1];

	[self insertText:[NSString stringWithFormat:@"\n%@%@", [line substringToIndex:indent], next]
	    replacementRange:selection];
	return YES;
}

- (void)insertNewline:(id)sender
{
	if (![self continueList])
		[super insertNewline:sender];
}

- (void)insertTab:(id)sender
{
	NSString *line = [[self string] substringWithRange:[self selectedLines]];
	if ([self markerOfLine:line] != nil)
		[self indentLines:sender];
	else
		[self insertText:kIndent replacementRange:[self selectedRange]];
}

- (void)insertBacktab:(id)sender
{
	[self outdentLines:sender];
}

#pragma mark -
#pragma mark Moving lines

- (IBAction)moveLineUp:(id)sender
{
	NSRange lines = [self selectedLines];
	if (lines.location == 0)
	{
		NSBeep();
		return;
	}

	NSString *text = [self string];
	NSRange above = [text lineRangeForRange:NSMakeRange(lines.location - 1, 0)];
	NSString *moved = [text substringWithRange:lines];
	NSString *other = [text substringWithRange:NSMakeRange(above.location, above.length - 1)];

	NSRange both = NSMakeRange(above.location, NSMaxRange(lines) - above.location);
	NSString *swapped = [NSString stringWithFormat:@"%@\n%@", moved, other];
	if (![self shouldChangeTextInRange:both replacementString:swapped])
		return;
	[self replaceCharactersInRange:both withString:swapped];
	[self didChangeText];
	[self setSelectedRange:NSMakeRange(above.location, [moved length])];
}

- (IBAction)moveLineDown:(id)sender
{
	NSRange lines = [self selectedLines];
	NSString *text = [self string];
	if (NSMaxRange(lines) >= [text length])
	{
		NSBeep();
		return;
	}

	NSRange below = [text lineRangeForRange:NSMakeRange(NSMaxRange(lines) + 1, 0)];
	if (below.length > 0 && [text characterAtIndex:NSMaxRange(below) - 1] == '\n')
		below.length--;
	NSString *moved = [text substringWithRange:lines];
	NSString *other = [text substringWithRange:below];

	NSRange both = NSMakeRange(lines.location, NSMaxRange(below) - lines.location);
	NSString *swapped = [NSString stringWithFormat:@"%@\n%@", other, moved];
	if (![self shouldChangeTextInRange:both replacementString:swapped])
		return;
	[self replaceCharactersInRange:both withString:swapped];
	[self didChangeText];
	[self setSelectedRange:NSMakeRange(lines.location + [other length] + 1, [moved length])];
}

- (IBAction)duplicateLine:(id)sender
{
	NSRange lines = [self selectedLines];
	NSString *copy = [@"\n" stringByAppendingString:[[self string] substringWithRange:lines]];
	[self insertText:copy replacementRange:NSMakeRange(NSMaxRange(lines), 0)];
}

- (IBAction)insertDate:(id)sender
{
	[self insertText:NBLongDate([NSDate date]) replacementRange:[self selectedRange]];
}

#pragma mark -
#pragma mark Finding

- (IBAction)showFindBar:(id)sender
{
	[findBar setHidden:NO];
	[[self window] makeFirstResponder:findField];
	[self updateFind];
}

- (IBAction)hideFindBar:(id)sender
{
	[findBar setHidden:YES];
	[findField setStringValue:@""];
	[self updateFind];
	[[self window] makeFirstResponder:self];
}

- (void)controlTextDidChange:(NSNotification *)notification
{
	if ([notification object] != findField)
		return;
	findPosition = 0;
	[self updateFind];
	[self showMatch];
}

// Collects all matches anew; notes are short enough to do it with each key.
- (void)updateFind
{
	NSString *needle = [findField stringValue];
	NSString *text = [self string];
	NSMutableArray *matches = [NSMutableArray array];
	NSRange rest = NSMakeRange(0, [text length]);

	while ([needle length] > 0 && rest.length > 0)
	{
		NSRange match = [text rangeOfString:needle
		                            options:NSCaseInsensitiveSearch | NSDiacriticInsensitiveSearch
		                              range:rest];
		if (match.location == NSNotFound)
			break;
		[matches addObject:[NSValue valueWithRange:match]];
		rest.location = NSMaxRange(match);
		rest.length = [text length] - rest.location;
	}

	[findMatches release];
	findMatches = [matches copy];
	if (findPosition >= [findMatches count])
		findPosition = 0;

	NSLayoutManager *layout = [self layoutManager];
	NSRange all = NSMakeRange(0, [text length]);
	[layout removeTemporaryAttribute:NSBackgroundColorAttributeName forCharacterRange:all];
	for (NSValue *match in findMatches)
	{
		[layout addTemporaryAttribute:NSBackgroundColorAttributeName
		                        value:[NSColor yellowColor]
		            forCharacterRange:[match rangeValue]];
	}

	if ([needle length] == 0)
		[findStatus setStringValue:@""];
	else if ([findMatches count] == 0)
		[findStatus setStringValue:NSLocalizedString(@"Not found", nil)];
	else
		[findStatus setStringValue:[NSString stringWithFormat:NSLocalizedString(@"%lu of %lu", nil),
		                            (unsigned long)findPosition + 1,
		                            (unsigned long)[findMatches count]]];
}

- (void)showMatch
{
	if ([findMatches count] == 0)
		return;
	NSRange match = [[findMatches objectAtIndex:findPosition] rangeValue];
	[self setSelectedRange:match];
	[self scrollRangeToVisible:match];
	[self showFindIndicatorForRange:match];
}

- (IBAction)findNext:(id)sender
{
	if ([findMatches count] == 0)
	{
		NSBeep();
		return;
	}
	findPosition = (findPosition + 1) % [findMatches count];
	[self updateFind];
	[self showMatch];
}

- (IBAction)findPrevious:(id)sender
{
	if ([findMatches count] == 0)
	{
		NSBeep();
		return;
	}
	findPosition = (findPosition + [findMatches count] - 1) % [findMatches count];
	[self updateFind];
	[self showMatch];
}

#pragma mark -
#pragma mark Links, counting, typewriter mode

- (void)highlightLinks
{
	NSString *text = [self string];
	NSRange all = NSMakeRange(0, [text length]);
	NSDataDetector *detector = [NSDataDetector dataDetectorWithTypes:NSTextCheckingTypeLink error:NULL];

	[[self textStorage] removeAttribute:NSLinkAttributeName range:all];
	[detector enumerateMatchesInString:text
	                           options:0
	                             range:all
	                        usingBlock:^(NSTextCheckingResult *result, NSMatchingFlags flags, BOOL *stop) {
		[[self textStorage] addAttribute:NSLinkAttributeName value:[result URL] range:[result range]];
	}];
}

- (void)updateCount
{
	if (note == nil)
	{
		[countLabel setStringValue:@""];
		return;
	}

	/* Counting the note itself would be a moment late:
	   it gets the text only when the timer fires.
	 */
	Note *draft = [[[Note alloc] init] autorelease];
	draft.body = [self string];
	NSUInteger words = [draft wordCount];
	NSUInteger minutes = MAX((NSUInteger)1, words / 220);

	[countLabel setStringValue:[NSString stringWithFormat:NSLocalizedString(@"%lu words — %lu min", nil),
	                            (unsigned long)words, (unsigned long)minutes]];
}

// Keeps the line that is being written in the middle of the view.
- (void)centreInsertionPoint
{
	NSRange glyphs = [[self layoutManager] glyphRangeForCharacterRange:[self selectedRange]
	                                              actualCharacterRange:NULL];
	NSRect line = [[self layoutManager] boundingRectForGlyphRange:glyphs
	                                              inTextContainer:[self textContainer]];
	NSRect visible = [self visibleRect];

	visible.origin.y = NSMidY(line) + kTextInset - NSHeight(visible) * 0.5;
	[self scrollPoint:NSMakePoint(NSMinX(visible), MAX(0.0, NSMinY(visible)))];
}

- (void)setTypewriterMode:(BOOL)mode
{
	typewriterMode = mode;
	if (typewriterMode)
		[self centreInsertionPoint];
}

#pragma mark -
#pragma mark Menus

- (BOOL)validateMenuItem:(NSMenuItem *)item
{
	SEL action = [item action];
	if (action == @selector(findNext:) || action == @selector(findPrevious:))
		return [findMatches count] > 0;
	if (action == @selector(insertDate:) || action == @selector(duplicateLine:))
		return note != nil;
	return [super validateMenuItem:item];
}

@end
