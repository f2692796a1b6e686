#pragma once

#include <QTest>
#include <QWidget>

namespace quillmeter::testing {

/// Milliseconds that a test waits for what must come. It goes on as soon as that is there, so this is how long a
/// fault takes to be told, on a machine with much else to do as well.
inline constexpr int kPatience = 60'000;

/// Runs the event loop until `condition` holds. Gives whether it does.
template <class Condition>
[[nodiscard]] bool waitFor(const Condition& condition) {
  return QTest::qWaitFor(condition, kPatience);
}

/// Until the window system shows the window of `widget`.
[[nodiscard]] inline bool waitUntilExposed(QWidget* widget) {
  return QTest::qWaitForWindowExposed(widget, kPatience);
}

/// Until the window of `widget` has the keyboard.
[[nodiscard]] inline bool waitUntilActive(QWidget* widget) {
  return QTest::qWaitForWindowActive(widget, kPatience);
}

}  // namespace quillmeter::testing
