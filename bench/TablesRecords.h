#pragma once

#include <cstdint>
#include <memory>
#include <random>
#include <string>

#include "measuring/FileObject.h"

namespace quillmeter::bench {

/// Records as a big project has them: names of common length, in no order.
inline FileList sourceRecords(int count) {
  std::mt19937 random(1);
  FileList files;
  files.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    const auto value = [&] { return Number(static_cast<std::int64_t>(random() % 5000)); };
    auto file = std::make_shared<FileObject>();
    const std::string name = (random() % 2 == 0 ? "NSConversation" : "messageView") +
                             std::to_string(random() % 1000000) + (random() % 2 == 0 ? ".h" : ".m");
    file->setFileName(name);
    file->setFilePath("/home/someone/Projects/Messenger/Source/" + name);
    file->setFileSize(value());
    file->setNoLinesTotal(value());
    file->setNoLinesWithoutSpaces(value());
    file->setNoLinesComments(value());
    file->setNoWords(value());
    file->setNoCharactersTotal(value());
    files.push_back(std::move(file));
  }
  return files;
}

}  // namespace quillmeter::bench
