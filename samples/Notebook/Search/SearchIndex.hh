//
//  SearchIndex.hh
//  Notebook
//
//  Copyright © 2026 The Quillmeter developers.
//  Under the MIT licence; see the file LICENSE.
//

#pragma once

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace notebook {

struct SearchResult {
    std::string identifier;
    double score;
};

/*
 How the index is laid out

   word        note        hits
   ---------   ---------   ----
   "harbour"   A3F0…         5      4 for the title, 1 for the body
               77C2…         1
   "hat"       77C2…         2

 The words are sorted, so all words with one beginning lie side by side:
 "ha" needs one look-up and then a short walk. A note that changes is taken
 out of every word first, which is slow for a large notebook (some 20 ms for
 5,000 notes) but happens only while nobody types.
 */

// An inverted index of the notes: for each word the notes that hold it.
// Not safe for threads; the bridge calls it from the main thread only.
class SearchIndex {
public:
    // Replaces what was known of the note.
    void update(const std::string& identifier, const std::string& title, const std::string& body);
    void remove(const std::string& identifier);
    void clear();

    std::size_t noteCount() const { return lengths_.size(); }
    std::size_t wordCount() const { return postings_.size(); }

    // The notes that hold every word of the query, the best first.
    // The last word also matches as the beginning of a longer one.
    std::vector<SearchResult> search(const std::string& query, std::size_t limit) const;

    // Lower-cased words of a text, in their order.
    static std::vector<std::string> wordsOf(const std::string& text);

private:
    typedef std::map<std::string, unsigned> Counts;

    void collect(const std::string& prefix, bool whole, Counts& counts) const;
    double score(const std::string& identifier, unsigned hits, std::size_t holders) const;

    std::map<std::string, Counts> postings_;
    std::map<std::string, std::size_t> lengths_;
};

}  // namespace notebook
