#include "tables/StartupId.h"

#include <xcb/xcb.h>

#include <QtGui/qguiapplication_platform.h>
#include <QByteArray>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QSysInfo>
#include <QWindow>
#include <cstdlib>
#include <memory>
#include <optional>

namespace quillmeter {
namespace {

struct Free {
  void operator()(void* reply) const { std::free(reply); }  // as the library hands its replies out
};

xcb_atom_t atomNamed(xcb_connection_t* connection, const QByteArray& name) {
  const auto request =
      xcb_intern_atom(connection, 1, static_cast<std::uint16_t>(name.size()), name.constData());
  const std::unique_ptr<xcb_intern_atom_reply_t, Free> reply(
      xcb_intern_atom_reply(connection, request, nullptr));
  return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

/// The one number that a property of a window holds.
std::optional<std::uint32_t> numberOf(xcb_connection_t* connection, std::uint32_t window,
                                      const QByteArray& name) {
  const auto request =
      xcb_get_property(connection, 0, window, atomNamed(connection, name), XCB_ATOM_ANY, 0, 1);
  const std::unique_ptr<xcb_get_property_reply_t, Free> reply(
      xcb_get_property_reply(connection, request, nullptr));
  if (!reply || reply->format != 32 || xcb_get_property_value_length(reply.get()) < 4) return std::nullopt;
  return *static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
}

}  // namespace

QString startupId(const QWindow* window, quint64 number) {
  const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  if (x11 == nullptr || window == nullptr || window->handle() == nullptr) return {};
  // The toolkit keeps the time where the window manager looks for it: at the window, or at one beside it.
  const auto id = static_cast<std::uint32_t>(window->winId());
  const std::uint32_t beside = numberOf(x11->connection(), id, "_NET_WM_USER_TIME_WINDOW").value_or(id);
  const auto time = numberOf(x11->connection(), beside, "_NET_WM_USER_TIME");
  if (!time || *time == 0) return {};
  return QStringLiteral("quillmeter-%1-%2-%3_TIME%4")
      .arg(QCoreApplication::applicationPid())
      .arg(QSysInfo::machineHostName())
      .arg(number)
      .arg(*time);
}

}  // namespace quillmeter
