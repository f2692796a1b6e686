#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "measuring/FileGroups.h"

/// Which extensions make which kind of file, and what the program calls and shows them as.
namespace quillmeter {

class FileObject;

/// What is done with a file: code and interface files are measured in full, images by their size. A file of
/// no kind never becomes part of a project.
enum class FileKind : std::uint8_t { code, image, interface, none };

inline constexpr std::size_t kFileKinds = 4;

/// A group of files as users meet it. All texts live as long as the program.
struct FileGroupEntry {
  FileGroup group;
  FileKind kind;                 ///< of all its files
  std::string_view key;          ///< in the lists of the command line
  std::string_view name;         ///< in a sentence: "No … of this project were found"
  std::string_view csvType;      ///< first field of a CSV row
  std::string_view reportLabel;  ///< first cell of the group's row in the report
  /// The group whose filter, box and key stand for this one, too, when it has none of its own.
  std::optional<FileGroup> chosenWith = {};
};

/// One extension. All texts live as long as the program.
struct FileKindEntry {
  std::string_view extension;  ///< lower-cased
  FileGroup group;
  std::string_view picture;              ///< name of the picture in the tables' type column
  bool isOnlyListed = false;             ///< in its group's filter alone; such a file is of no kind
  bool isIconSet = false;                ///< an image that the chart of image files leaves out
  bool hasMethods = false;               ///< what the method-counting parsers can read
  bool hasNoReportLines = false;         ///< the report shows dashes for its lines
  bool isFirstOfItsGroup = false;        ///< before all others in the report's look-up of groups
  bool isOnlyInAssetCatalogues = false;  ///< of no kind anywhere else; see `kindOfPath`
};

/// The picture of an extension that is in no table.
inline constexpr std::string_view kOtherPicture = "icon_extension_other";

/// The one place that says of each extension what kind it is, which group it belongs to and how it is shown.
/// Everything else derives from it: which files are read and how they are measured, the lists and predicates
/// of a project, filters, pictures, captions, exports and the report.
///
/// A plain value that a project carries, so that projects read by other rules, and tests, have tables of
/// their own. Every group of an entry has a row among the groups. Of two entries with one extension the first
/// holds. A file goes by its lower-cased extension alone.
class FileKindTable {
 public:
  FileKindTable(std::vector<FileGroupEntry> groups, std::vector<FileKindEntry> entries);

  /// In the order of filters, boxes and report.
  [[nodiscard]] const std::vector<FileGroupEntry>& groups() const { return groups_; }
  [[nodiscard]] const std::vector<FileKindEntry>& entries() const { return entries_; }
  [[nodiscard]] FileGroups allGroups() const;
  /// The groups that one choice of a user stands for: `group`, and those that are chosen with it.
  [[nodiscard]] FileGroups chosenBy(FileGroup group) const;
  /// The row of a group that the table has.
  [[nodiscard]] const FileGroupEntry& row(FileGroup group) const;

  /// The entry of an extension, compared exactly; null when there is none. Points into the table.
  [[nodiscard]] const FileKindEntry* find(std::string_view lowerCasedExtension) const;
  [[nodiscard]] const FileKindEntry* find(const FileObject& file) const;

  /// The kind that an entry stands for; `none` for null.
  [[nodiscard]] FileKind kindOf(const FileKindEntry* entry) const;
  [[nodiscard]] FileKind kind(std::string_view lowerCasedExtension) const {
    return kindOf(find(lowerCasedExtension));
  }
  [[nodiscard]] FileKind kind(const FileObject& file) const { return kindOf(find(file)); }
  /// The kind of a file by any text that ends with its name: goes by the text after the last ".",
  /// lower-cased. What is of a kind only in asset catalogues is so when a folder in the text is one.
  [[nodiscard]] FileKind kindOfPath(std::string_view path) const;

  /// The extensions of a kind, in the table's order; none for `none`.
  [[nodiscard]] std::span<const std::string_view> extensions(FileKind kind) const {
    return extensions_[static_cast<std::size_t>(kind)];
  }
  /// The extensions of a group, in the table's order.
  [[nodiscard]] std::vector<std::string_view> extensions(FileGroup group) const;
  /// The extensions of several groups, those that are only listed among them.
  [[nodiscard]] std::vector<std::string_view> listedExtensions(const FileGroups& groups) const;

 private:
  static constexpr std::size_t kSlots = 64;

  [[nodiscard]] static std::size_t slot(std::string_view extension);

  std::vector<FileGroupEntry> groups_;
  std::vector<FileKindEntry> entries_;
  std::array<std::vector<std::string_view>, kFileKinds> extensions_;
  std::array<FileKind, FileGroups::kMost> kindOfGroup_{};
  std::array<std::size_t, kSlots> firstOfSlot_{};  ///< where the search for an extension begins
  std::vector<std::size_t> nextOfSlot_;            ///< where it goes on, by entry
  std::size_t longest_ = 0;                        ///< length of the longest extension
};

/// The table of the classic rules.
[[nodiscard]] const FileKindTable& classicKinds();

/// Whether `extension` is, exactly and case-sensitively, one of `formats`.
[[nodiscard]] bool isOneOf(std::string_view extension, std::span<const std::string_view> formats);

/// Extensions as captions write them: ".c, .cpp, .h", with `lastSeparator` before the last one.
[[nodiscard]] std::string extensionsText(std::span<const std::string_view> extensions,
                                         std::string_view lastSeparator = ", ");

}  // namespace quillmeter
