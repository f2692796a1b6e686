#include <QApplication>
#include <QMouseEvent>
#include <QWidget>
#include <string>
#include <utility>

#include "controls/QtDelayedCalls.h"
#include "tables/DesktopFileBrowser.h"

namespace {

/// A window that covers the screen and reveals a file in the desktop's file browser at a click.
class RevealSource final : public QWidget {
 public:
  explicit RevealSource(std::string path)
      : path_(std::move(path)), browser_(std::make_shared<quillmeter::QtDelayedCalls>()) {
    setWindowTitle(QStringLiteral("Reveal source"));
    resize(900, 700);
  }

 protected:
  void mousePressEvent(QMouseEvent* /*event*/) override { browser_.reveal(path_); }

 private:
  std::string path_;
  quillmeter::DesktopFileBrowser browser_;
};

}  // namespace

/// Usage: reveal_source FILE
int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  if (argc < 2) return 2;
  RevealSource source(argv[1]);
  source.show();
  return QApplication::exec();
}
