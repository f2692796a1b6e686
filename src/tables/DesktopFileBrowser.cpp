#include "tables/DesktopFileBrowser.h"

#include <QCursor>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QStringList>
#include <QThread>
#include <chrono>
#include <filesystem>
#include <mutex>
#include <system_error>
#include <utility>

#include "tables/StartupId.h"

namespace quillmeter {
namespace {

/// How long a file browser may take to start and answer.
constexpr std::chrono::milliseconds kPatience(10000);
/// How long the end of the program waits for a bus that hangs.
constexpr unsigned long kMillisecondsToEnd = 200;

std::string folderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == std::string::npos || slash == 0 ? "/" : path.substr(0, slash);
}

}  // namespace

/// The file browser's seat on the bus. It talks with the bus and answers on the thread that it was moved
/// to.
class FileManagerBus final : public QObject {
 public:
  using Answer = std::function<void(quint64 request, bool isShown)>;

  FileManagerBus(QString address, Answer answer)
      : address_(std::move(address)),
        name_(QStringLiteral("quillmeter-%1").arg(reinterpret_cast<quintptr>(this))),
        answer_(std::move(answer)) {}
  ~FileManagerBus() override { QDBusConnection::disconnectFromBus(name_); }

  /// From any thread.
  void requestShowing(quint64 request, const QByteArray& address, const QString& startupId) {
    requests_.post([this, request, address, startupId] { show(request, address, startupId); });
  }

  /// No answer is given any more.
  void fallSilent() {
    const std::lock_guard lock(mutex_);
    answer_ = nullptr;
  }

 private:
  void show(quint64 request, const QByteArray& address, const QString& startupId) {
    const QDBusConnection bus = connected();
    if (!bus.isConnected()) return answer(request, false);
    QDBusMessage message = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
    message << QStringList{QString::fromLatin1(address)} << startupId;
    auto* watcher =
        new QDBusPendingCallWatcher(bus.asyncCall(message, static_cast<int>(kPatience.count())), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, request, watcher] {
      answer(request, !watcher->isError());
      watcher->deleteLater();
    });
  }

  void answer(quint64 request, bool isShown) {
    const std::lock_guard lock(mutex_);
    if (answer_) answer_(request, isShown);
  }

  [[nodiscard]] QDBusConnection connected() const {
    QDBusConnection known(name_);
    if (known.isConnected()) return known;
    QDBusConnection::disconnectFromBus(name_);
    if (address_.isEmpty()) return QDBusConnection::connectToBus(QDBusConnection::SessionBus, name_);
    return QDBusConnection::connectToBus(address_, name_);
  }

  const QString address_;
  const QString name_;
  std::mutex mutex_;
  Answer answer_;
  MessageQueue requests_{this};  ///< a child, so that it moves to the thread, too
};

DesktopFileBrowser::DesktopFileBrowser(std::shared_ptr<DelayedCalls> delayedCalls)
    : DesktopFileBrowser(std::move(delayedCalls), QString(), &QDesktopServices::openUrl) {}

DesktopFileBrowser::DesktopFileBrowser(std::shared_ptr<DelayedCalls> delayedCalls, const QString& busAddress,
                                       FolderOpener openFolder)
    : delayedCalls_(std::move(delayedCalls)),
      openFolder_(std::move(openFolder)),
      thread_(std::make_unique<QThread>()),
      bus_(std::make_unique<FileManagerBus>(busAddress, [this](quint64 request, bool isShown) {
        answers_.post([this, request, isShown] { answered(request, isShown); });
      })) {
  bus_->moveToThread(thread_.get());
  thread_->start();
}

DesktopFileBrowser::~DesktopFileBrowser() {
  if (!waiting_.empty()) QGuiApplication::restoreOverrideCursor();
  bus_->fallSilent();
  thread_->quit();
  if (thread_->wait(kMillisecondsToEnd)) return;
  // The thread hangs in a call to the bus; it and what it uses must stay until the process ends.
  static_cast<void>(bus_.release());
  static_cast<void>(thread_.release());
}

void DesktopFileBrowser::reveal(const std::string& path) {
  const quint64 request = ++lastRequest_;
  if (waiting_.empty()) QGuiApplication::setOverrideCursor(QCursor(Qt::BusyCursor));
  waiting_.emplace(request, path);
  bus_->requestShowing(request, fileAddress(path), startupId(QGuiApplication::focusWindow(), request));
  delayedCalls_->performAfterDelay(this, kPatience, [this, request] { answered(request, false); });
}

/// Only the first answer to a request counts; having waited too long is one, too.
void DesktopFileBrowser::answered(quint64 request, bool isShown) {
  const auto waiting = waiting_.extract(request);
  if (waiting.empty()) return;
  if (waiting_.empty()) QGuiApplication::restoreOverrideCursor();
  if (isShown) return;
  const std::string folder = folderOf(waiting.mapped());
  std::error_code ignored;
  if (std::filesystem::is_directory(folder, ignored)) openFolder_(QUrl::fromEncoded(fileAddress(folder)));
}

QByteArray fileAddress(const std::string& path) {
  return "file://" + QByteArray::fromStdString(path).toPercentEncoding("/");
}

}  // namespace quillmeter
