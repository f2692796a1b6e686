#pragma once

#include <QPixmap>
#include <QPushButton>
#include <QString>
#include <memory>

namespace quillmeter {

/// The open-project button: a push button whose picture fills it and changes as the mouse comes, goes and
/// presses. Its title is drawn over the picture.
///
/// After a click the pressed picture is shown only when the press has been dealt with (the action included),
/// and it stays until the mouse leaves or a release comes that ends no press; a mouse that left while the
/// action ran has left already. While the button is held down it shows its alternate picture, when it is of
/// the type that does so.
class NSButtonWithHover : public QPushButton {
  Q_OBJECT
  /// The picture by name.
  Q_PROPERTY(QString imageName READ imageName WRITE setImageName)
  Q_PROPERTY(QString alternateImageName READ alternateImageName WRITE setAlternateImageName)

 public:
  enum class ButtonType {
    momentaryPush,    ///< looks the same while it is held down
    momentaryChange,  ///< shows its alternate picture while it is held down
  };

  explicit NSButtonWithHover(QWidget* parent = nullptr);
  ~NSButtonWithHover() override;

  void setButtonType(ButtonType type) { buttonType_ = type; }
  [[nodiscard]] ButtonType buttonType() const { return buttonType_; }

  [[nodiscard]] const QString& imageName() const { return imageName_; }
  void setImageName(const QString& name);
  [[nodiscard]] const QString& alternateImageName() const { return alternateImageName_; }
  void setAlternateImageName(const QString& name) { alternateImageName_ = name; }

  /// Replaces the area that the mouse is tracked in by a fresh one over the whole button. It reports that the
  /// mouse comes only while the button's window has the keyboard; that it goes always, since the keyboard may
  /// have gone first.
  void updateTrackingAreas();

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  class TrackingArea;

  void mouseEntered();
  void mouseExited();

  std::unique_ptr<TrackingArea> trackingArea_;
  ButtonType buttonType_ = ButtonType::momentaryPush;
  QString imageName_;
  QString alternateImageName_;
  bool tracksClick_ = false;
  bool mouseHasLeft_ = false;  ///< since the press
};

}  // namespace quillmeter
