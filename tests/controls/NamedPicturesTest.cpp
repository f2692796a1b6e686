#include <gtest/gtest.h>

#include <QImage>

#include "controls/ImageView.h"
#include "controls/NamedImage.h"

namespace quillmeter {
namespace {

TEST(NamedPictures, EveryPictureOfTheMainScreenIsThere) {
  for (const char* name :
       {"window_middle_part", "window_middle_part_over", "window_middle_part_invalid", "drag_normal",
        "drag_over", "drag_invalid", "btn_open_project_normal", "btn_open_project_hover",
        "btn_open_project_press", "loader_empty", "loader_full", "quillmeter", "window_middle_part_dark",
        "window_middle_part_over_dark", "window_middle_part_invalid_dark", "drag_normal_dark",
        "drag_over_dark", "drag_invalid_dark", "loader_empty_dark"}) {
    EXPECT_FALSE(namedImage(QString::fromUtf8(name)).isNull()) << name;
  }
}

TEST(NamedPictures, StatesOfOnePictureAreOfOneSize) {
  const QSize window = namedImageSize(QStringLiteral("window_middle_part"));
  EXPECT_EQ(window, QSize(420, 360));
  EXPECT_EQ(namedImageSize(QStringLiteral("window_middle_part_over")), window);
  EXPECT_EQ(namedImageSize(QStringLiteral("window_middle_part_invalid")), window);
  const QSize drag = namedImageSize(QStringLiteral("drag_normal"));
  EXPECT_EQ(namedImageSize(QStringLiteral("drag_over")), drag);
  EXPECT_EQ(namedImageSize(QStringLiteral("drag_invalid")), drag);
}

TEST(NamedPictures, APictureIsDrawnAnewForEveryScaleAndSize) {
  const QString name = QStringLiteral("lense");
  EXPECT_EQ(namedImage(name, QSize(12, 12), 1).size(), QSize(12, 12));
  const QPixmap fine = namedImage(name, QSize(12, 12), 2);
  EXPECT_EQ(fine.size(), QSize(24, 24));
  EXPECT_EQ(fine.devicePixelRatio(), 2);
  EXPECT_EQ(namedImage(name, QSize(12, 12), 1).size(), QSize(12, 12));
  EXPECT_EQ(namedImage(name, QSize(24, 24), 1).devicePixelRatio(), 1);
}

TEST(ImageView, ShowsItsPictureAndThenAnother) {
  ImageView view;
  view.resize(300, 50);
  view.setImageName(QStringLiteral("loader_full"));
  const QColor full = view.grab().toImage().pixelColor(150, 25);
  view.setImageName(QStringLiteral("loader_empty"));
  EXPECT_NE(view.grab().toImage().pixelColor(150, 25), full);
  EXPECT_EQ(view.imageName(), QStringLiteral("loader_empty"));
}

TEST(ImageView, UnknownPictureIsEmpty) {
  ImageView view;
  view.resize(20, 20);
  const QImage nothing = view.grab().toImage();
  view.setImageName(QStringLiteral("no such picture"));
  EXPECT_EQ(view.grab().toImage(), nothing);
}

}  // namespace
}  // namespace quillmeter
