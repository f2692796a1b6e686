#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "measuring/FileRanking.h"

namespace quillmeter {

/// One number of a file under the name that all machine-readable outputs give it. The names never change.
struct FileCounter {
  std::string_view name;
  FileMeasure value;
};

inline constexpr std::size_t kFileCounters = 7;

inline constexpr std::array<FileCounter, kFileCounters> kFileCounterFields = {{
    {"fileSize", &FileObject::fileSize},
    {"noLinesTotal", &FileObject::noLinesTotal},
    {"noLinesComments", &FileObject::noLinesComments},
    {"noLinesWithoutSpaces", &FileObject::noLinesWithoutSpaces},
    {"noWords", &FileObject::noWords},
    {"noCharactersWithoutSpaces", &FileObject::noCharactersWithoutSpaces},
    {"noCharactersTotal", &FileObject::noCharactersTotal},
}};

}  // namespace quillmeter
