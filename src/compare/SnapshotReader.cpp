#include "compare/SnapshotReader.h"

#include <fcntl.h>
#include <simdjson.h>

#include <cerrno>
#include <cstring>
#include <new>
#include <span>
#include <utility>

#include "analysis/ProjectRules.h"
#include "compare/CountedRules.h"
#include "files/ReadingFiles.h"
#include "support/Paths.h"
#include "support/Uninterrupted.h"

namespace quillmeter {
namespace {

namespace ondemand = simdjson::ondemand;

constexpr std::int64_t kKnownVersion = 1;
constexpr std::size_t kLargestFile = std::size_t{1} << 30U;

/// A text that is JSON, or could be, but not a measurement. Never leaves this file.
struct Fault {
  std::string message;
};

std::string wordsFor(simdjson::error_code code) {
  switch (code) {
    case simdjson::EMPTY:
      return "is empty";
    case simdjson::UTF8_ERROR:
      return "is not JSON: it is not UTF-8";
    case simdjson::UNCLOSED_STRING:
    case simdjson::INCOMPLETE_ARRAY_OR_OBJECT:
      return "is not JSON, or only the beginning of it: a bracket or a quote is never closed";
    case simdjson::DEPTH_ERROR:
      return "is no measurement: it is nested too deeply";
    case simdjson::INCORRECT_TYPE:
      return "is no measurement: it is not a JSON object";
    default:
      return "is not JSON";
  }
}

/// Reads one document. The functions throw a `Fault` or the library's error, which `readSnapshot` turns into
/// words.
class MeasurementReader {
 public:
  Snapshot read(ondemand::document& document) {
    ondemand::object object = document.get_object();
    for (auto field : object)
      readMember(keyOf(field), field.value());
    if (document.current_location().error() != simdjson::OUT_OF_BOUNDS) {
      throw Fault{"is not JSON: something follows its end"};
    }
    return completed();
  }

 private:
  static std::string textOf(std::string_view token) {
    const std::size_t end = token.find_last_of('"');
    if (!token.starts_with('"') || end == 0) throw Fault{"is no measurement: a name is no text"};
    auto text = unescapedJson(token.substr(1, end - 1));
    if (!text || text->find('\0') != std::string::npos) {
      throw Fault{"is no measurement: a name holds what no name can hold"};
    }
    return std::move(*text);
  }

  static std::string keyOf(simdjson::simdjson_result<ondemand::field>& field) {
    const char* const begin = field.key().value().raw();
    const char* end = begin;
    while (*end != '"')
      end += *end == '\\' ? 2 : 1;
    return unescapedJson({begin, static_cast<std::size_t>(end - begin)}).value_or("");
  }

  /// `key` names the count in the fault, and `owner` what it is a count of.
  static std::int64_t countOf(ondemand::value value, const std::string& key, const std::string& owner = {}) {
    std::int64_t count = 0;
    if (value.get_int64().get(count) != simdjson::SUCCESS || count < 0) {
      const std::string of = owner.empty() ? "" : " of " + owner;
      throw Fault{"is no measurement: " + key + of + " is no whole number from 0 on"};
    }
    return count;
  }

  void readMember(const std::string& key, ondemand::value value) {
    if (key == "version") {
      const std::int64_t version = countOf(value, "version");
      if (version != kKnownVersion) {
        throw Fault{"is a measurement of version " + std::to_string(version) + ", this tool reads version " +
                    std::to_string(kKnownVersion)};
      }
    } else if (key == "rules") {
      snapshot_.rules = textOf(value.raw_json_token());
    } else if (key == "projectTitle") {
      snapshot_.projectTitle = textOf(value.raw_json_token());
      hasTitle_ = true;
    } else if (key == "initialPath") {
      snapshot_.initialPath = textOf(value.raw_json_token());
      hasPath_ = true;
    } else if (key == "files") {
      readFiles(value);
    } else if (key == "totals") {
      readTotals(value);
    } else if (key == "before") {
      throw Fault{"is no measurement, but a comparison of two"};
    }
  }

  void readFiles(ondemand::value value) {
    ondemand::array files;
    if (value.get_array().get(files) != simdjson::SUCCESS) {
      throw Fault{"is no measurement: \"files\" is no list"};
    }
    snapshot_.files.clear();
    hasFiles_ = true;
    for (auto file : files)
      readFile(file.value());
  }

  void readFile(ondemand::value value) {
    const std::string which = "file " + std::to_string(snapshot_.files.size() + 1);
    ondemand::object object;
    if (value.get_object().get(object) != simdjson::SUCCESS) {
      throw Fault{"is no measurement: " + which + " is no object"};
    }
    SnapshotFile file;
    std::array<bool, kFileCounters> found{};
    for (auto field : object) {
      const std::string key = keyOf(field);
      if (key == "filePath") file.path = textOf(field.value().raw_json_token());
      const auto place = totalNamed(key);
      if (!place || *place >= kFileCounters) continue;
      ondemand::value number = field.value();
      file.counters[*place] = number.is_null() ? 0 : countOf(number, key, which);
      found[*place] = true;
    }
    if (file.path.empty()) throw Fault{"is no measurement: " + which + " has no filePath"};
    for (std::size_t i = 0; i < kFileCounters; ++i) {
      if (!found[i]) {
        throw Fault{"is no measurement: " + which + " has no " + std::string(totalNames()[i])};
      }
    }
    snapshot_.files.push_back(std::move(file));
  }

  void readTotals(ondemand::value value) {
    ondemand::object object;
    if (value.get_object().get(object) != simdjson::SUCCESS) {
      throw Fault{"is no measurement: \"totals\" is no object"};
    }
    for (auto field : object) {
      const std::string key = keyOf(field);
      const auto place = totalNamed(key);
      if (!place || *place < kFileCounters) continue;
      snapshot_.totals[*place] = countOf(field.value(), key);
      hasTotal_[*place - kFileCounters] = true;
    }
  }

  Snapshot completed() {
    const auto require = [](bool has, std::string_view name) {
      if (!has) throw Fault{"is no measurement: " + std::string(name) + " is missing"};
    };
    require(hasTitle_, "projectTitle");
    require(hasPath_, "initialPath");
    require(hasFiles_, "files");
    for (std::size_t i = 0; i < hasTotal_.size(); ++i)
      require(hasTotal_[i], totalNames()[kFileCounters + i]);
    if (!areKnownRules(snapshot_.rules)) {
      throw Fault{"is measured by rules that this tool does not know: " + snapshot_.rules};
    }
    const std::string_view folder = parentFolder(snapshot_.initialPath);
    for (SnapshotFile& file : snapshot_.files)
      file.path = relativePath(file.path, folder);
    arrange(snapshot_);
    return std::move(snapshot_);
  }

  Snapshot snapshot_{.projectTitle = {},
                     .initialPath = {},
                     .rules = std::string(rulesName(ProjectRules::classic)),
                     .files = {},
                     .totals = {}};
  bool hasTitle_ = false;
  bool hasPath_ = false;
  bool hasFiles_ = false;
  std::array<bool, kTotals - kFileCounters> hasTotal_{};
};

}  // namespace

SnapshotReading readSnapshot(std::string json) {
  try {
    const std::size_t size = json.size();
    json.resize(size + simdjson::SIMDJSON_PADDING);
    ondemand::parser parser;
    ondemand::document document =
        parser.iterate(simdjson::padded_string_view(json.data(), size, json.size()));
    return {MeasurementReader().read(document), {}};
  } catch (const Fault& fault) {
    return {std::nullopt, fault.message};
  } catch (const simdjson::simdjson_error& error) {
    if (error.error() == simdjson::MEMALLOC) throw std::bad_alloc();
    return {std::nullopt, wordsFor(error.error())};
  }
}

SnapshotReading readSnapshotFile(const std::string& path) {
  // Waits for the writer of a pipe, so that a shell may put a command in the place of a file.
  const Descriptor file(uninterrupted([&] { return ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY); }));
  if (!file) return {std::nullopt, std::strerror(errno)};
  std::string json;
  for (constexpr std::size_t block = std::size_t{1} << 20U;;) {
    const std::size_t size = json.size();
    if (size > kLargestFile) return {std::nullopt, "is larger than 1 GiB"};
    json.resize(size + block);
    const auto count = readBlock(FileSystem::real(), file.value(), std::span(json).subspan(size));
    if (!count) return {std::nullopt, std::strerror(count.error().number)};
    json.resize(size + *count);
    if (*count < block) return readSnapshot(std::move(json));
  }
}

}  // namespace quillmeter
