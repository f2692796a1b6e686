#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "files/FileSystem.h"
#include "parsers/FMethodStats.h"
#include "parsers/Strategy.h"

namespace quillmeter {

/// What the parsers of single languages share: the state of a reading and the reading of a file line by line.
/// Alone it counts nothing. A parser shares its result with the caller, keeps everything else to itself, and
/// is used by one thread at a time.
class BaseParser : public Strategy {
 public:
  using LogSink = std::function<void(std::string_view)>;
  /// An operation of a parser that a file is read for: it is called with no path, once for each line.
  using Operation = std::shared_ptr<FMethodStats> (BaseParser::*)(const std::string&);

  /// `fileSystem` must outlive the parser.
  explicit BaseParser(const FileSystem& fileSystem = FileSystem::real()) : fileSystem_(fileSystem) {}

  /// Makes the parser ready for a first file.
  void initialize();

  /// Logs that this is no parser of any language. Gives null.
  std::shared_ptr<FMethodStats> execute(const std::string& path) override;

  /// Reads the file at `path` and calls `callback` on this parser for each line, with the line, its line feed
  /// included, in `currentLine`. A line of more than 127 bytes comes in pieces of that size, each of which
  /// counts as a line; one that holds a NUL ends there; a byte-order mark at the beginning of the file is
  /// left out. Sets `eof` at the end. A file that cannot be opened is reported on standard error and leaves
  /// `eof` as it is.
  void startReadingFileWithCallback(const std::string& path, Operation callback);

  /// The line being handled; absent before the first one.
  [[nodiscard]] const std::optional<std::string>& currentLine() const { return currentLine_; }
  /// The result being built; null before there is one.
  [[nodiscard]] const std::shared_ptr<FMethodStats>& methodStats() const { return methodStats_; }
  /// Whether a whole file has been read.
  [[nodiscard]] bool eof() const { return eof_; }

  void setCurrentLine(std::optional<std::string> value) { currentLine_ = std::move(value); }
  void setMethodStats(std::shared_ptr<FMethodStats> value) { methodStats_ = std::move(value); }
  void setEof(bool value) { eof_ = value; }

  /// Where log lines go; nowhere when none is set.
  void setLogSink(LogSink sink) { log_ = std::move(sink); }

 protected:
  [[nodiscard]] const FileSystem& fileSystem() const { return fileSystem_; }

 private:
  std::optional<std::string> currentLine_;
  std::shared_ptr<FMethodStats> methodStats_;
  bool eof_ = false;
  const FileSystem& fileSystem_;
  LogSink log_;
};

}  // namespace quillmeter
