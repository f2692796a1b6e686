//
//  SearchBridge.h
//  Notebook
//
//  Copyright © 2026 The Quillmeter developers.
//  Under the MIT licence; see the file LICENSE.
//

#import <Foundation/Foundation.h>

@class NoteStore;

// Lets Objective-C search the notes without seeing any C++.
@interface SearchBridge : NSObject
{
    void *index;
}

- (void)rebuildFromStore:(NoteStore *)store;

// Identifiers of the notes found, the best first.
- (NSArray *)identifiersForQuery:(NSString *)query;

@end
