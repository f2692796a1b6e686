//
//  SearchIndex.cpp
//  Notebook
//
//  Copyright © 2026 The Quillmeter developers.
//  Under the MIT licence; see the file LICENSE.
//

#include "SearchIndex.hh"

#include <algorithm>
#include <cmath>

#include "../Support/utf8scan.h"

namespace notebook {

namespace {

// A word in the title weighs as much as this many in the body.
const unsigned kTitleWeight = 4;

void appendUtf8(std::string& text, uint32_t character) {
    if (character < 0x80) {
        text += static_cast<char>(character);
    } else if (character < 0x800) {
        text += static_cast<char>(0xC0 | (character >> 6));
        text += static_cast<char>(0x80 | (character & 0x3F));
    } else if (character < 0x10000) {
        text += static_cast<char>(0xE0 | (character >> 12));
        text += static_cast<char>(0x80 | ((character >> 6) & 0x3F));
        text += static_cast<char>(0x80 | (character & 0x3F));
    } else {
        text += static_cast<char>(0xF0 | (character >> 18));
        text += static_cast<char>(0x80 | ((character >> 12) & 0x3F));
        text += static_cast<char>(0x80 | ((character >> 6) & 0x3F));
        text += static_cast<char>(0x80 | (character & 0x3F));
    }
}

// Good enough for Latin and Greek: "Ä" finds "ä", "Ω" finds "ω".
uint32_t lowered(uint32_t character) {
    if (character >= 'A' && character <= 'Z') return character + 32;
    if (character >= 0xC0 && character <= 0xDE && character != 0xD7) return character + 32;
    if (character >= 0x391 && character <= 0x3A9) return character + 32;
    return character;
}

bool isBetter(const SearchResult& left, const SearchResult& right) {
    if (left.score != right.score) return left.score > right.score;
    return left.identifier < right.identifier;
}

}  // namespace

std::vector<std::string> SearchIndex::wordsOf(const std::string& text) {
    std::vector<std::string> words;
    std::string word;
    utf8scan_t scan;
    uint32_t character;

    utf8scan_begin(&scan, text.data(), text.size());
    while (utf8scan_next(&scan, &character)) {
        if (utf8scan_is_word(character)) {
            appendUtf8(word, lowered(character));
        } else if (!word.empty()) {
            words.push_back(word);
            word.clear();
        }
    }
    if (!word.empty()) words.push_back(word);
    return words;
}

void SearchIndex::update(const std::string& identifier, const std::string& title, const std::string& body) {
    remove(identifier);

    const std::vector<std::string> titleWords = wordsOf(title);
    const std::vector<std::string> bodyWords = wordsOf(body);

    for (std::size_t i = 0; i < titleWords.size(); ++i) postings_[titleWords[i]][identifier] += kTitleWeight;
    for (std::size_t i = 0; i < bodyWords.size(); ++i) postings_[bodyWords[i]][identifier] += 1;
    lengths_[identifier] = titleWords.size() + bodyWords.size();
}

void SearchIndex::remove(const std::string& identifier) {
    if (lengths_.erase(identifier) == 0) return;

    std::map<std::string, Counts>::iterator posting = postings_.begin();
    while (posting != postings_.end()) {
        posting->second.erase(identifier);
        if (posting->second.empty())
            postings_.erase(posting++);
        else
            ++posting;
    }
}

void SearchIndex::clear() {
    postings_.clear();
    lengths_.clear();
}

/*
 Adds up the hits of one word of the query. A prefix may stand for many words,
 which lie side by side in the sorted map.
 */
void SearchIndex::collect(const std::string& prefix, bool whole, Counts& counts) const {
    std::map<std::string, Counts>::const_iterator posting = postings_.lower_bound(prefix);
    for (; posting != postings_.end(); ++posting) {
        if (posting->first.compare(0, prefix.size(), prefix) != 0) return;
        if (whole && posting->first.size() != prefix.size()) return;

        Counts::const_iterator hit = posting->second.begin();
        for (; hit != posting->second.end(); ++hit) counts[hit->first] += hit->second;
    }
}

// A rare word says more than a common one, and a hit in a short note more than in a long one.
double SearchIndex::score(const std::string& identifier, unsigned hits, std::size_t holders) const {
    const double length = static_cast<double>(lengths_.find(identifier)->second);
    const double rarity = std::log(1.0 + static_cast<double>(lengths_.size()) / static_cast<double>(holders));
    return rarity * hits / std::sqrt(length + 1.0);
}

std::vector<SearchResult> SearchIndex::search(const std::string& query, std::size_t limit) const {
    std::vector<SearchResult> results;
    const std::vector<std::string> words = wordsOf(query);
    if (words.empty()) return results;

    std::map<std::string, double> scores;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const bool last = i + 1 == words.size();
        Counts counts;
        collect(words[i], !last, counts);

        std::map<std::string, double> both;
        Counts::const_iterator hit = counts.begin();
        for (; hit != counts.end(); ++hit) {
            if (i > 0 && scores.count(hit->first) == 0) continue;
            both[hit->first] = scores[hit->first] + score(hit->first, hit->second, counts.size());
        }
        scores.swap(both);
    }

    std::map<std::string, double>::const_iterator entry = scores.begin();
    for (; entry != scores.end(); ++entry) {
        SearchResult result = {entry->first, entry->second};
        results.push_back(result);
    }
    std::sort(results.begin(), results.end(), isBetter);
    if (results.size() > limit) results.resize(limit);
    return results;
}

}  // namespace notebook
