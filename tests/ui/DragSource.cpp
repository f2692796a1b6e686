#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>
#include <QWidget>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>

namespace {

/// A window from which a list of addresses can be dragged into another process.
class DragSource final : public QWidget {
 public:
  DragSource(QByteArray addresses, Qt::DropActions actions)
      : addresses_(std::move(addresses)), actions_(actions) {
    setWindowTitle(QStringLiteral("Drag source"));
    resize(120, 120);
    move(20, 20);
  }

 protected:
  void mousePressEvent(QMouseEvent* /*event*/) override {}
  void mouseMoveEvent(QMouseEvent* event) override {
    if (!event->buttons().testFlag(Qt::LeftButton)) return;
    auto* drag = new QDrag(this);   // deleted by the toolkit
    auto* content = new QMimeData;  // owned by the drag
    content->setData(QStringLiteral("text/uri-list"), addresses_);
    drag->setMimeData(content);
    connect(drag, &QDrag::actionChanged, [](Qt::DropAction action) { say("accepted", action); });
    say("dragging", actions_);
    say("dropped", drag->exec(actions_, Qt::MoveAction & actions_ ? Qt::MoveAction : Qt::CopyAction));
  }

 private:
  static void say(const char* what, Qt::DropActions actions) {
    std::printf("%s %d\n", what, static_cast<int>(actions));
    std::fflush(stdout);
  }

  QByteArray addresses_;
  Qt::DropActions actions_;
};

}  // namespace

/// Usage: drag_source FILE [move]: FILE holds the list of addresses; with "move" nothing may be copied.
int main(int argc, char** argv) {
  QApplication application(argc, argv);
  if (argc < 2) return 2;
  std::ifstream stream(argv[1], std::ios::binary);
  const std::string addresses{std::istreambuf_iterator<char>(stream), {}};
  const bool moveOnly = argc > 2;
  DragSource source(QByteArray::fromStdString(addresses),
                    moveOnly ? Qt::MoveAction : Qt::CopyAction | Qt::MoveAction);
  source.show();
  return QApplication::exec();
}
