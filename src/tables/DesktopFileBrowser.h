#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QUrl>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "controls/MessageQueue.h"
#include "controls/Services.h"

class QThread;

namespace quillmeter {

class FileManagerBus;

/// Shows files in the desktop's file browser: asks the one that is on the session bus, and opens the file's
/// folder where nobody answers in time. All talk with the bus, the connecting too, happens on a thread of its
/// own, so that neither a bus nor a file browser that hangs holds up the windows; the mouse's cursor tells
/// that the answer is waited for. The file browser is handed what lets its window come to the front. Main
/// thread only.
class DesktopFileBrowser final : public QObject, public FileBrowser {
  Q_OBJECT

 public:
  using FolderOpener = std::function<void(const QUrl& folder)>;

  /// On the session's own bus and the desktop's own way to open a folder.
  explicit DesktopFileBrowser(std::shared_ptr<DelayedCalls> delayedCalls);
  /// On the bus at `busAddress`, opening folders with `openFolder`.
  DesktopFileBrowser(std::shared_ptr<DelayedCalls> delayedCalls, const QString& busAddress,
                     FolderOpener openFolder);
  ~DesktopFileBrowser() override;

  void reveal(const std::string& path) override;

 private:
  void answered(quint64 request, bool isShown);

  std::shared_ptr<DelayedCalls> delayedCalls_;
  FolderOpener openFolder_;
  MessageQueue answers_;
  std::unique_ptr<QThread> thread_;
  std::unique_ptr<FileManagerBus> bus_;  ///< works on the thread
  quint64 lastRequest_ = 0;
  std::map<quint64, std::string> waiting_;  ///< paths that were asked for and not answered yet
};

/// The address of the file at `path`, which is bytes: what a file name may hold and an address may not is
/// percent-encoded, bytes that are not UTF-8 among it.
[[nodiscard]] QByteArray fileAddress(const std::string& path);

}  // namespace quillmeter
