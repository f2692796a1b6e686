#include "analysis/ProjectReader.h"

#include "files/StoppableFileSystem.h"
#include "support/Paths.h"
#include "support/Text.h"

namespace quillmeter {
namespace {

/// Gives a pointer another value for the life of this object.
class Replaced {
 public:
  Replaced(const FileSystem*& pointer, const FileSystem* value)
      : pointer_(pointer), before_(std::exchange(pointer, value)) {}
  ~Replaced() { pointer_ = before_; }
  Replaced(const Replaced&) = delete;
  Replaced& operator=(const Replaced&) = delete;

 private:
  const FileSystem*& pointer_;
  const FileSystem* before_;
};

}  // namespace

void ProjectReader::parseFileAtPathAndDelegate(const std::string& path, ParseProjectDelegate* delegate) {
  delegate_ = delegate;
  setArrayFiles(FileList());
  setInitialPath(path);
  setProjectTitle(removingOccurrences(lastPathComponent(path), ".xcodeproj"));
  setFindings({});
  setFaults({});
  faultsSoFar_ = {};
  const StoppableFileSystem stoppable(*given_, stop_);
  const Replaced disk(fileSystem_, &stoppable);

  ProjectFindings found;
  setArrayFiles(filesOfProject(path, found));
  setFindings(std::move(found));
  setFaults(std::exchange(faultsSoFar_, {}));
  if (delegate_ != nullptr) delegate_->progressParsingProjectEnded();
}

void ProjectReader::reportStarted() {
  if (delegate_ != nullptr) delegate_->progressParsingProjectStarted();
}

void ProjectReader::reportProgress(double fraction) {
  if (delegate_ != nullptr) delegate_->progressParsingProject(fraction);
}

void ProjectReader::log(const std::string& line) const {
  if (log_) log_(line);
}

void ProjectReader::noteOrFail(const std::string& path, DiskError error) {
  if (error.kind() == DiskError::Kind::fewDescriptors) throw TooFewDescriptors(path, error);
  faultsSoFar_.note(path, error);
}

}  // namespace quillmeter
