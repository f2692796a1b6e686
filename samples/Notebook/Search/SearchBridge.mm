//
//  SearchBridge.mm
//  Notebook
//
//  Copyright © 2026 The Quillmeter developers.
//  Under the MIT licence; see the file LICENSE.
//

#import "SearchBridge.h"
#import "Note.h"
#import "NoteStore.h"
#import "Tag.h"

#include "SearchIndex.hh"

using notebook::SearchIndex;
using notebook::SearchResult;

static const std::size_t kMaximumResults = 200;

static std::string utf8(NSString *text)
{
    const char *bytes = [text UTF8String];
    return bytes != NULL ? std::string(bytes) : std::string();
}

static inline SearchIndex *indexOf(void *pointer)
{
    return static_cast<SearchIndex *>(pointer);
}

@implementation SearchBridge

- (id)init
{
    self = [super init];
    if (self != nil)
        index = new SearchIndex;
    return self;
}

- (void)dealloc
{
    delete indexOf(index);
    [super dealloc];
}

- (void)rebuildFromStore:(NoteStore *)store
{
    indexOf(index)->clear();
    for (Note *note in [store notes])
    {
        // Tags are searched with the title, so that "#work" finds them at once.
        NSArray *names = [[note tags] valueForKey:@"name"];
        NSString *title = [[note displayTitle] stringByAppendingFormat:@" %@",
                           [names componentsJoinedByString:@" "]];
        indexOf(index)->update(utf8(note.identifier), utf8(title), utf8(note.body));
    }
}

- (NSArray *)identifiersForQuery:(NSString *)query
{
    const std::vector<SearchResult> results = indexOf(index)->search(utf8(query), kMaximumResults);

    NSMutableArray *identifiers = [NSMutableArray arrayWithCapacity:results.size()];
    for (std::size_t i = 0; i < results.size(); ++i)
        [identifiers addObject:[NSString stringWithUTF8String:results[i].identifier.c_str()]];
    return identifiers;
}

@end
