#include "app/Compositor.h"

#include <xcb/xcb.h>
#include <xcb/xfixes.h>

#include <QtGui/qguiapplication_platform.h>
#include <QByteArray>
#include <QGuiApplication>
#include <QScreen>
#include <cstdlib>
#include <memory>

namespace quillmeter {
namespace {

/// The least version of the extension that tells of selections' owners.
constexpr std::uint32_t kMajorVersion = 1;
constexpr std::uint32_t kMinorVersion = 0;
/// The bit that marks an event that another client sent.
constexpr std::uint8_t kSent = 0x80;

struct Free {
  void operator()(void* reply) const { std::free(reply); }  // as the library hands its replies out
};
template <class Reply>
using ReplyPointer = std::unique_ptr<Reply, Free>;

/// Null anywhere but on X11.
xcb_connection_t* x11Connection() {
  const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  return x11 == nullptr ? nullptr : x11->connection();
}

/// The manager of a screen owns the selection that is named after it. Applications run on the first one.
xcb_atom_t managersSelection(xcb_connection_t* connection) {
  static const QByteArray kName("_NET_WM_CM_S0");
  const auto request =
      xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(kName.size()), kName.constData());
  const ReplyPointer<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection, request, nullptr));
  return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

}  // namespace

bool desktopBlendsWindows() {
  xcb_connection_t* connection = x11Connection();
  if (connection == nullptr) return true;
  const xcb_atom_t selection = managersSelection(connection);
  if (selection == XCB_ATOM_NONE) return true;
  const auto request = xcb_get_selection_owner(connection, selection);
  const ReplyPointer<xcb_get_selection_owner_reply_t> owner(
      xcb_get_selection_owner_reply(connection, request, nullptr));
  return !owner || owner->owner != XCB_WINDOW_NONE;
}

bool desktopPlacesWindows() {
  if (QGuiApplication::platformName().startsWith(QLatin1String("wayland"))) return true;
  xcb_connection_t* connection = x11Connection();
  if (connection == nullptr) return false;
  // Such a server names itself by an extension, an older one by its screens alone.
  static const QByteArray kName("XWAYLAND");
  const auto request =
      xcb_query_extension(connection, static_cast<std::uint16_t>(kName.size()), kName.constData());
  const ReplyPointer<xcb_query_extension_reply_t> extension(
      xcb_query_extension_reply(connection, request, nullptr));
  if (extension && extension->present != 0) return true;
  const QScreen* screen = QGuiApplication::primaryScreen();
  return screen != nullptr && screen->name().startsWith(QLatin1String(kName));
}

CompositorWatch::CompositorWatch(QObject* parent) : QObject(parent) {
  xcb_connection_t* connection = x11Connection();
  if (connection == nullptr) return;
  const xcb_query_extension_reply_t* extension = xcb_get_extension_data(connection, &xcb_xfixes_id);
  if (extension == nullptr || extension->present == 0) return;
  const auto version = xcb_xfixes_query_version(connection, kMajorVersion, kMinorVersion);
  const ReplyPointer<xcb_xfixes_query_version_reply_t> supported(
      xcb_xfixes_query_version_reply(connection, version, nullptr));
  const xcb_atom_t selection = managersSelection(connection);
  if (!supported || selection == XCB_ATOM_NONE) return;
  ownerEvent_ = static_cast<std::uint8_t>(extension->first_event + XCB_XFIXES_SELECTION_NOTIFY);
  const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
  xcb_xfixes_select_selection_input(connection, root, selection,
                                    XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                        XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                        XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
  QCoreApplication::instance()->installNativeEventFilter(this);
}

bool CompositorWatch::nativeEventFilter(const QByteArray& type, void* message, qintptr* /*result*/) {
  if (type != "xcb_generic_event_t") return false;
  const auto* event = static_cast<const xcb_generic_event_t*>(message);
  if ((event->response_type & ~kSent) == ownerEvent_) Q_EMIT changed();
  return false;
}

}  // namespace quillmeter
