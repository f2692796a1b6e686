#include "app/ProjectRead.h"

#include <chrono>
#include <exception>
#include <new>
#include <utility>

#include "support/Confinement.h"

namespace quillmeter {
namespace {

constexpr std::chrono::milliseconds kPatience{10};

}  // namespace

ProjectRead::ProjectRead(std::unique_ptr<ProjectReader> project, std::function<void(ProjectRead&)> body,
                         QObject* parent)
    : QObject(parent), body_(std::move(body)), project_(std::move(project)) {
  project_->setStopToken(stopSource_.get_token());
}

ProjectRead::~ProjectRead() {
  stop();
  if (thread_.joinable()) thread_.join();
}

void ProjectRead::start() {
  thread_ = std::thread([this] { run(); });
}

void ProjectRead::stop() {
  stopSource_.request_stop();
}

void ProjectRead::run() {
  // What a stranger wrote is read by a thread that can do nothing but read.
  confineThread();
  bool succeeded = false;
  try {
    body_(*this);
    succeeded = true;
  } catch (const std::exception&) {
    // No memory for the project, say, or too few descriptors. The user learns of it as of any project that
    // cannot be read.
  }
  // The one message that must come. Where there is no memory for it, there will be, or nobody waits for it
  // any more.
  while (!wasEndPosted(succeeded) && !stopSource_.stop_requested())
    std::this_thread::sleep_for(kPatience);
}

bool ProjectRead::wasEndPosted(bool succeeded) {
  try {
    postEnded(succeeded);
    return true;
  } catch (const std::bad_alloc&) {
    return false;
  }
}

void ProjectRead::progressParsingProjectStarted() {
  toMainThread_.post([this] { Q_EMIT started(); });
}

void ProjectRead::progressParsingProject(double fraction) {
  latestProgress_ = fraction;
  if (progressIsPosted_.exchange(true)) return;
  toMainThread_.post([this] {
    progressIsPosted_ = false;
    Q_EMIT progress(latestProgress_);
  });
}

void ProjectRead::postEnded(bool succeeded) {
  toMainThread_.post([this, succeeded] {
    project_->setDelegate(nullptr);
    Q_EMIT ended(succeeded ? project_ : nullptr, leftOut_);
  });
}

}  // namespace quillmeter
