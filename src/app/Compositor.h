#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>
#include <cstdint>

namespace quillmeter {

/// Whether the desktop blends translucent windows with what lies behind them. On X11 that is the compositing
/// manager's doing, which may come and go; everywhere else it always does. Asks the display's server, so it
/// costs a round trip.
[[nodiscard]] bool desktopBlendsWindows();

/// Whether only the desktop can be relied on to move windows: on Wayland, and on the X11 that Wayland
/// desktops offer to old programs, where some let a window ask for a place and leave it where it is.
[[nodiscard]] bool desktopPlacesWindows();

/// Tells when X11's compositing manager comes or goes, by the selection that it owns. Says nothing on other
/// desktops, and where the server does not tell of selections. Main thread only.
class CompositorWatch final : public QObject, public QAbstractNativeEventFilter {
  Q_OBJECT

 public:
  explicit CompositorWatch(QObject* parent = nullptr);

  bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;

 Q_SIGNALS:
  void changed();

 private:
  std::uint8_t ownerEvent_ = 0;  ///< the server's number for a selection's new owner; 0 when it tells of none
};

}  // namespace quillmeter
