#include "app/CustomDragView.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDragEnterEvent>
#include <QMimeData>
#include <filesystem>
#include <string>
#include <vector>

#include "helpers/ProjectFixture.h"

namespace quillmeter {
namespace {

using testing::TemporaryFolder;
using Calls = std::vector<std::string>;

class Delegate final : public CustomDragViewDelegate {
 public:
  void draggingEntered(CustomDragView*) override { calls.push_back("entered"); }
  void draggingInvalid(CustomDragView*) override { calls.push_back("invalid"); }
  void draggingExited(CustomDragView*) override { calls.push_back("exited"); }
  void fileSelected(const std::string& folder) override { calls.push_back("selected " + folder); }
  Calls calls;
};

class DragView : public ::testing::Test {
 protected:
  DragView() {
    view.setDelegate(&delegate);
    view.awakeFromNib();
    testing::writeProject(project, {});
  }
  void dragFile(const std::string& path) { mime.setData(QStringLiteral("text/uri-list"), uri(path)); }
  static QByteArray uri(const std::string& path) {
    return "file://" + QByteArray::fromStdString(path).toPercentEncoding("/") + "\r\n";
  }
  bool enter() {
    QDragEnterEvent event(QPoint(5, 5), actions, &mime, Qt::LeftButton, {});
    QApplication::sendEvent(&view, &event);
    action = event.dropAction();
    return event.isAccepted();
  }
  bool move() {
    QDragMoveEvent event(QPoint(6, 6), actions, &mime, Qt::LeftButton, {});
    QApplication::sendEvent(&view, &event);
    return event.isAccepted();
  }
  void leave() {
    QDragLeaveEvent event;
    QApplication::sendEvent(&view, &event);
  }
  bool drop() {
    QDropEvent event(QPointF(6, 6), actions, &mime, Qt::LeftButton, {});
    QApplication::sendEvent(&view, &event);
    action = event.dropAction();
    return event.isAccepted();
  }

  TemporaryFolder project;
  Delegate delegate;
  CustomDragView view;
  QMimeData mime;
  Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;
  Qt::DropAction action = Qt::IgnoreAction;
};

TEST_F(DragView, FolderWithAProjectEntersIsSelectedAndExits) {
  dragFile(project.path());
  EXPECT_TRUE(enter());
  EXPECT_TRUE(move());
  EXPECT_TRUE(drop());
  EXPECT_EQ(delegate.calls, (Calls{"entered", "selected " + project.path(), "exited"}));
}

TEST_F(DragView, OnlyEverCopiesSoThatNoSourceDeletesItsFiles) {
  dragFile(project.path());
  enter();
  EXPECT_EQ(action, Qt::CopyAction);
  drop();
  EXPECT_EQ(action, Qt::CopyAction);
}

TEST_F(DragView, BundleIsInvalidAndOpensNothing) {
  dragFile(project / "App.xcodeproj");
  EXPECT_TRUE(enter());
  EXPECT_TRUE(drop());
  EXPECT_EQ(delegate.calls, (Calls{"invalid", "exited"}));
}

TEST_F(DragView, FileIsInvalidAndOpensNothing) {
  dragFile(project.file("notes.txt"));
  EXPECT_TRUE(enter());
  EXPECT_TRUE(drop());
  EXPECT_EQ(delegate.calls, (Calls{"invalid", "exited"}));
}

TEST_F(DragView, DragThatLeavesOnlyExits) {
  dragFile(project.path());
  enter();
  leave();
  EXPECT_EQ(delegate.calls, (Calls{"entered", "exited"}));
}

TEST_F(DragView, SourceThatLetsNothingBeCopiedIsRefused) {
  actions = Qt::MoveAction;
  dragFile(project.path());
  enter();
  EXPECT_EQ(action, Qt::IgnoreAction);
  EXPECT_FALSE(move());
  leave();
  EXPECT_EQ(delegate.calls, (Calls{"invalid", "exited"}));
}

TEST_F(DragView, WebLinkIsLetInInSilenceAndNotTaken) {
  mime.setUrls({QUrl(QStringLiteral("https://quillmeter.example/"))});
  EXPECT_TRUE(enter());
  EXPECT_FALSE(drop());
  EXPECT_EQ(delegate.calls, Calls{"exited"});
}

TEST_F(DragView, TextIsLetInInSilenceAndNotTaken) {
  mime.setText(QStringLiteral("words"));
  EXPECT_TRUE(enter());
  EXPECT_FALSE(drop());
  EXPECT_EQ(delegate.calls, Calls{"exited"});
}

TEST_F(DragView, OnlyTheFirstOfManyItemsCounts) {
  QByteArray list = uri(project.path());
  for (int item = 0; item < 10'000; ++item)
    list += uri("/nowhere/" + std::to_string(item));
  mime.setData(QStringLiteral("text/uri-list"), list);
  enter();
  EXPECT_TRUE(drop());
  EXPECT_EQ(delegate.calls, (Calls{"entered", "selected " + project.path(), "exited"}));
}

TEST_F(DragView, FirstItemThatIsNoProjectHidesTheSecondThatIsOne) {
  mime.setData(QStringLiteral("text/uri-list"), uri("/nowhere") + uri(project.path()));
  enter();
  drop();
  EXPECT_EQ(delegate.calls, (Calls{"invalid", "exited"}));
}

TEST_F(DragView, NameThatIsNotUtf8ArrivesByteByByte) {
  const std::string odd = project.folder(
      "od\xFF"
      "d");
  project.folder(
      "od\xFF"
      "d/a.xcodeproj");
  dragFile(odd);
  enter();
  drop();
  EXPECT_EQ(delegate.calls, (Calls{"entered", "selected " + odd, "exited"}));
}

TEST_F(DragView, FolderThatVanishesUnderTheDragIsTakenInSilence) {
  dragFile(project.path());
  enter();
  std::filesystem::remove_all(project / "App.xcodeproj");
  EXPECT_TRUE(drop());
  EXPECT_EQ(delegate.calls, (Calls{"entered", "exited"}));
}

TEST_F(DragView, WithoutADelegateNothingHappens) {
  view.setDelegate(nullptr);
  dragFile(project.path());
  EXPECT_TRUE(enter());
  leave();
  EXPECT_TRUE(enter());
  EXPECT_TRUE(drop());
  EXPECT_TRUE(delegate.calls.empty());
}

TEST_F(DragView, TakesDragsOnlyOnceAwake) {
  EXPECT_FALSE(CustomDragView().acceptDrops());
  EXPECT_TRUE(view.acceptDrops());
}

}  // namespace
}  // namespace quillmeter
