#pragma once

#include <memory>
#include <string>

#include "parsers/CPlusPlusParser.h"
#include "parsers/FMethodStats.h"
#include "parsers/ObjectiveCParser.h"
#include "parsers/Strategy.h"

namespace quillmeter {

/// Counts the methods of a file with the parser that its extension asks for. It owns the parsers, makes them
/// when first needed and keeps them; as an `ObjectiveCParser` reads one file, so does this for Objective-C
/// files: take a new one for each.
class RegulatorParser {
 public:
  /// `fileSystem` must outlive the object.
  explicit RegulatorParser(const FileSystem& fileSystem = FileSystem::real()) : fileSystem_(fileSystem) {}

  /// Whether a file of this name has a parser: the extension is "m", "mm", "c" or "cpp", letter case
  /// respected.
  [[nodiscard]] static bool hasParserForFile(const std::string& path);

  /// The counts of the file at `path`: C functions of "c" and "cpp" files, methods and C functions of "m" and
  /// "mm" files. Null for every other extension and for an Objective-C file that cannot be opened; all 0 for
  /// another file that cannot be read.
  [[nodiscard]] std::shared_ptr<FMethodStats> parseFile(const std::string& path);

  [[nodiscard]] ObjectiveCParser& getObjectiveCParser();
  [[nodiscard]] CPlusPlusParser& getCPlusParser();

  /// A way of counting for others to ask for; not owned, and not used here.
  [[nodiscard]] Strategy* strategy() const { return strategy_; }
  void setStrategy(Strategy* value) { strategy_ = value; }

 private:
  Strategy* strategy_ = nullptr;
  std::unique_ptr<ObjectiveCParser> parserObjC_;
  std::unique_ptr<CPlusPlusParser> parserCPlus_;
  const FileSystem& fileSystem_;
};

}  // namespace quillmeter
