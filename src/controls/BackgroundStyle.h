#pragma once

#include <QWidget>

namespace quillmeter {

/// Notes on a heading that it stands on a raised background: the property "backgroundStyle" is 2.
inline void setRaisedBackgroundStyle(QWidget* heading) {
  constexpr int raised = 2;
  heading->setProperty("backgroundStyle", raised);
}

}  // namespace quillmeter
