#include "xcode/MembershipExceptions.h"

#include <algorithm>

#include "support/Paths.h"
#include "xcode/Locations.h"

namespace quillmeter {
namespace {

constexpr std::string_view kLocalized = "/Localized";
constexpr std::string_view kLocalizedFolder = ".lproj";

/// What begins the paths of all that is in a folder.
std::string prefixOf(const std::string& folder) {
  return folder == "/" ? folder : folder + "/";
}

}  // namespace

MembershipExceptions::MembershipExceptions(const ProjectFiles& files,
                                           const ProjectFiles::SynchronisedFolder& folder)
    : files_(files), location_(folder.location) {
  const auto first = files.appearances.begin() + folder.files.first;
  sorted_.assign(first, first + folder.files.count);
  std::sort(sorted_.begin(), sorted_.end(),
            [&](std::uint32_t left, std::uint32_t right) { return files.files[left] < files.files[right]; });
}

void MembershipExceptions::add(std::string_view exception) {
  if (exception.empty()) return;
  const std::string_view rest =
      exception.starts_with(kLocalized) ? exception.substr(kLocalized.size()) : std::string_view();
  if (rest.starts_with(':')) {
    addLocalized(rest.substr(std::min(rest.find_first_not_of(' ', 1), rest.size())));
  } else if (rest.starts_with('/')) {
    addLocalized(rest.substr(1));
  } else {
    addPath(normalisedLocation(location_, exception));
  }
}

void MembershipExceptions::addPath(const std::string& path) {
  const std::size_t exact = firstFrom(path);
  if (exact < sorted_.size() && this->path(exact) == path) runs_.emplace_back(exact, exact + 1);
  std::string prefix = prefixOf(path);
  const std::size_t first = firstFrom(prefix);
  prefix.back() = '/' + 1;  // comes right behind everything in the folder
  runs_.emplace_back(first, firstFrom(prefix));
}

void MembershipExceptions::addLocalized(std::string_view path) {
  const std::size_t slash = path.rfind('/');
  const std::string_view folder =
      slash == std::string_view::npos ? std::string_view() : path.substr(0, slash);
  const std::string_view name = path.substr(slash + 1);
  if (name.empty()) return;
  for (const std::string& localized : localizedFolders(normalisedLocation(location_, folder)))
    addPath(joinedPath(localized, name));
}

const std::vector<std::string>& MembershipExceptions::localizedFolders(const std::string& folder) {
  if (!knowsLocalizedFolders_) {
    knowsLocalizedFolders_ = true;
    const std::size_t start = location_ == "/" ? 0 : location_.size();
    for (std::size_t i = 0; i < sorted_.size(); ++i) {
      const std::string_view file = path(i);
      for (std::size_t end = file.find('/', start + 1); end != std::string_view::npos;
           end = file.find('/', end + 1)) {
        const std::string_view inner = file.substr(0, end);
        if (!inner.ends_with(kLocalizedFolder)) continue;
        auto& known = localizedFolders_[std::string(parentLocation(inner))];
        // All files in a folder follow each other.
        if (known.empty() || known.back() != inner) known.emplace_back(inner);
      }
    }
  }
  return localizedFolders_[folder];
}

std::size_t MembershipExceptions::firstFrom(std::string_view from) const {
  const auto found = std::lower_bound(
      sorted_.begin(), sorted_.end(), from,
      [&](std::uint32_t file, std::string_view wanted) { return files_.files[file] < wanted; });
  return static_cast<std::size_t>(found - sorted_.begin());
}

std::vector<MembershipExceptions::Run> MembershipExceptions::joinedRuns() const {
  std::vector<Run> sorted = runs_;
  std::sort(sorted.begin(), sorted.end());
  std::vector<Run> joined;
  for (const Run& run : sorted) {
    if (joined.empty() || run.first > joined.back().second) {
      joined.push_back(run);
    } else {
      joined.back().second = std::max(joined.back().second, run.second);
    }
  }
  return joined;
}

std::vector<std::uint32_t> MembershipExceptions::listed() const {
  std::vector<std::uint32_t> result;
  for (const auto& [first, end] : joinedRuns())
    result.insert(result.end(), at(first), at(end));
  return result;
}

std::vector<std::uint32_t> MembershipExceptions::others() const {
  std::vector<std::uint32_t> result;
  std::size_t done = 0;
  for (const auto& [first, end] : joinedRuns()) {
    result.insert(result.end(), at(done), at(first));
    done = end;
  }
  result.insert(result.end(), at(done), sorted_.end());
  return result;
}

}  // namespace quillmeter
