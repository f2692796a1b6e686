#pragma once

#include <QObject>
#include <atomic>
#include <functional>
#include <memory>
#include <stop_token>
#include <thread>
#include <utility>

#include "analysis/ProjectReader.h"
#include "controls/MessageQueue.h"
#include "xcode/LeftOut.h"

namespace quillmeter {

/// One read of one project, on a thread of its own. What the reader reports on its thread comes out as
/// signals on the main thread, in the same order; the reader never waits for them. Progress that the main
/// thread has not yet come around to is overtaken by newer progress, so that a hundred thousand reports cost
/// it no more than a few. The project itself crosses over with `ended` and is not touched by the reader any
/// more from then on.
///
/// Lives on the main thread. Destroying it stops the reader and waits for it: as long as the call to the file
/// system takes that each of its threads is in.
class ProjectRead final : public QObject, private ParseProjectDelegate {
  Q_OBJECT

 public:
  /// A read of `project`, which has not been read yet. `body` runs on the reader's thread; it reads
  /// `project()` with `delegate()`. If it throws, the read ends without a project.
  ProjectRead(std::unique_ptr<ProjectReader> project, std::function<void(ProjectRead&)> body,
              QObject* parent = nullptr);
  ~ProjectRead() override;

  void start();
  /// Gives the read up; `ended` still comes, with a project without files.
  void stop();

  /// For the body.
  [[nodiscard]] ProjectReader& project() { return *project_; }
  [[nodiscard]] ParseProjectDelegate* delegate() { return this; }
  /// Asked to stop by `stop`. The project knows it already.
  [[nodiscard]] std::stop_token stopToken() const { return stopSource_.get_token(); }
  /// What `ended` tells beside the project.
  void setLeftOut(LeftOut leftOut) { leftOut_ = std::move(leftOut); }

 Q_SIGNALS:
  void started();
  void progress(double fraction);
  /// The last message. `project` is null when the read failed altogether.
  void ended(const std::shared_ptr<quillmeter::ProjectReader>& project, const quillmeter::LeftOut& leftOut);

 private:
  void progressParsingProjectStarted() override;
  void progressParsingProject(double fraction) override;
  void progressParsingProjectEnded() override {}  // sent once the reader has let go of the project

  void run();
  [[nodiscard]] bool wasEndPosted(bool succeeded);
  void postEnded(bool succeeded);

  std::function<void(ProjectRead&)> body_;
  MessageQueue toMainThread_;
  std::stop_source stopSource_;
  std::shared_ptr<ProjectReader> project_;
  LeftOut leftOut_;
  std::atomic<double> latestProgress_ = 0.0;
  std::atomic<bool> progressIsPosted_ = false;
  std::thread thread_;
};

}  // namespace quillmeter
