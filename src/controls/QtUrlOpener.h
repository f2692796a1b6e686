#pragma once

#include "controls/Services.h"

namespace quillmeter {

/// Opens addresses with the desktop's default browser.
class QtUrlOpener final : public UrlOpener {
 public:
  void open(const QUrl& url) override;
};

}  // namespace quillmeter
