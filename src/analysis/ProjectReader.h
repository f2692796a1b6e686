#pragma once

#include <functional>
#include <stop_token>
#include <string>
#include <string_view>
#include <utility>

#include "analysis/MeasuredProject.h"
#include "files/FileSystem.h"
#include "files/WorkerPool.h"

namespace quillmeter {

/// Receives the progress of a read. The calls come on the reader's own thread, in this order: started once,
/// then numbers up to 1 (a project of a single line gives a not-a-number), ended once. An implementation must
/// not block: one that shows progress in windows posts the call to its own thread and returns.
class ParseProjectDelegate {
 public:
  virtual ~ParseProjectDelegate() = default;
  virtual void progressParsingProjectStarted() = 0;
  virtual void progressParsingProject(double fraction) = 0;
  virtual void progressParsingProjectEnded() = 0;
};

/// A project that can be read, by one set of rules or the other.
///
/// One object serves one caller at a time. A read runs on the caller's thread and on others that it makes and
/// joins before it returns; what it reports comes on the caller's. It touches nothing but its own fields and
/// the file system. Afterwards the project is only read, and may then be shared by threads.
class ProjectReader : public MeasuredProject {
 public:
  using LogSink = std::function<void(std::string_view)>;

  /// Reads the whole project whose bundle lies at `path` (no trailing "/"), on the caller's thread. A second
  /// call starts again from an empty list. `delegate` is not owned and may be null. Throws
  /// `TooFewDescriptors`, or what else it failed of (memory, say), and has no files then.
  void parseFileAtPathAndDelegate(const std::string& path, ParseProjectDelegate* delegate);

  [[nodiscard]] ParseProjectDelegate* delegate() const { return delegate_; }
  void setDelegate(ParseProjectDelegate* delegate) { delegate_ = delegate; }

  /// Where plain diagnostic lines go, one call a line, on the reader's thread. Without a sink no line is
  /// made.
  void setLogSink(LogSink sink) { log_ = std::move(sink); }

  /// Gives reads up once a stop is requested: from then on none of their threads asks the disk for anything,
  /// and they end without files. The project itself, and its clean-up, are not concerned.
  void setStopToken(std::stop_token stop) { stop_ = std::move(stop); }

  /// How many threads a read takes, in place of the usual number. The result does not depend on it.
  void setThreads(WorkerPool::Size threads) { threads_ = threads; }

 protected:
  /// Reads through `fileSystem`, which must outlive this object.
  ProjectReader(const FileSystem& fileSystem, FileKindTable kinds)
      : MeasuredProject(std::move(kinds)), given_(&fileSystem), fileSystem_(&fileSystem) {}

  /// The rules' part of a read: gives the files. What it finds beside them goes into `found`.
  [[nodiscard]] virtual FileList filesOfProject(const std::string& bundle, ProjectFindings& found) = 0;
  /// Called by `filesOfProject` when the description has been read, or could not be.
  void reportStarted();
  void reportProgress(double fraction);
  void log(const std::string& line) const;
  [[nodiscard]] bool wantsLog() const { return static_cast<bool>(log_); }

  [[nodiscard]] const FileSystem& fileSystem() const { return *fileSystem_; }
  [[nodiscard]] bool isStopped() const { return stop_.stop_requested(); }
  [[nodiscard]] WorkerPool::Size threads() const { return threads_; }
  [[nodiscard]] ReadFaults& faultsSoFar() { return faultsSoFar_; }

  /// Notes why something on the disk could not be read. Without descriptors the figures would be too small,
  /// so that throws `TooFewDescriptors`; what else fails is one file's matter.
  void noteOrFail(const std::string& path, DiskError error);

 private:
  const FileSystem* given_;
  const FileSystem* fileSystem_;  ///< the given one; during a read, one that can be stopped in front of it
  std::stop_token stop_;
  WorkerPool::Size threads_ = WorkerPool::usualSize();
  ReadFaults faultsSoFar_;
  ParseProjectDelegate* delegate_ = nullptr;
  LogSink log_;
};

}  // namespace quillmeter
