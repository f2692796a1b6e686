#pragma once

#include <QString>
#include <QStringList>
#include <QUrl>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "support/UserDefaults.h"

class QObject;
class QWidget;

/// What the windows ask of the desktop, each behind an interface, so that a test can answer in its place and
/// time can be driven by hand. The application makes one of each and hands them down as one `Services`.
namespace quillmeter {

/// Sends a message after a delay on the main run loop (also while a modal dialog runs). The message is
/// dropped when `receiver` is destroyed first. Every delay of the program goes through here.
class DelayedCalls {
 public:
  virtual ~DelayedCalls() = default;
  virtual void performAfterDelay(QObject* receiver, std::chrono::milliseconds delay,
                                 std::function<void()> message) = 0;
};

/// Application-modal alerts.
class Alerts {
 public:
  virtual ~Alerts() = default;
  /// Shows `message` with `buttons` in the given order and blocks until answered. Gives the index of the
  /// button, or nothing when the alert was dismissed in another way. `parent` may be null.
  virtual std::optional<int> runModal(QWidget* parent, const QString& message,
                                      const QStringList& buttons) = 0;
};

struct SavePanelRequest {
  QString title;
  QString allowedFileType;  ///< an extension without the dot
  QString suggestedName;    ///< without extension
};

/// A save dialog as a sheet on a window. Does not block.
class SavePanel {
 public:
  virtual ~SavePanel() = default;
  /// `completion` gets the chosen path in the file system's bytes, exactly as chosen (no extension appended),
  /// or nothing when the user cancelled. It is not called when `window` is destroyed first.
  virtual void beginSheet(QWidget* window, const SavePanelRequest& request,
                          std::function<void(std::optional<std::string> path)> completion) = 0;
};

/// The desktop's file browser.
class FileBrowser {
 public:
  virtual ~FileBrowser() = default;
  /// Opens a file browser window with the file selected. `path` is bytes. A missing file or a desktop without
  /// a file browser is met in silence.
  virtual void reveal(const std::string& path) = 0;
};

/// The desktop's web browser. A failure is met in silence.
class UrlOpener {
 public:
  virtual ~UrlOpener() = default;
  virtual void open(const QUrl& url) = 0;
};

/// One of each; every member is set.
struct Services {
  std::shared_ptr<DelayedCalls> delayedCalls;
  std::shared_ptr<Alerts> alerts;
  std::shared_ptr<SavePanel> savePanel;
  std::shared_ptr<FileBrowser> fileBrowser;
  std::shared_ptr<UrlOpener> urlOpener;
  std::shared_ptr<UserDefaults> userDefaults;
};

}  // namespace quillmeter
