#include "app/Compositor.h"

#include <xcb/xcb.h>

#include <QtGui/qguiapplication_platform.h>
#include <QByteArray>
#include <QGuiApplication>
#include <cstdlib>
#include <memory>

namespace quillmeter {
namespace {

struct Free {
  void operator()(void* reply) const { std::free(reply); }  // as the library hands its replies out
};
template <class Reply>
using ReplyPointer = std::unique_ptr<Reply, Free>;

}  // namespace

bool desktopBlendsWindows() {
  const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  if (x11 == nullptr || x11->connection() == nullptr) return true;
  xcb_connection_t* connection = x11->connection();
  // The manager of a screen owns the selection that is named after it. Applications run on the first one.
  static const QByteArray kName("_NET_WM_CM_S0");
  const auto atomRequest =
      xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(kName.size()), kName.constData());
  const ReplyPointer<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(connection, atomRequest, nullptr));
  if (!atom) return true;
  const auto ownerRequest = xcb_get_selection_owner(connection, atom->atom);
  const ReplyPointer<xcb_get_selection_owner_reply_t> owner(
      xcb_get_selection_owner_reply(connection, ownerRequest, nullptr));
  return !owner || owner->owner != XCB_WINDOW_NONE;
}

}  // namespace quillmeter
