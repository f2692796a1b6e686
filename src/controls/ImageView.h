#pragma once

#include <QLabel>
#include <QString>

namespace quillmeter {

/// Shows a picture by name, in its dark version on a dark desktop, scaled to the view and crisp at every
/// scale factor. Lets mouse presses through to the view below.
class ImageView : public QLabel {
  Q_OBJECT

 public:
  explicit ImageView(QWidget* parent = nullptr);

  [[nodiscard]] const QString& imageName() const { return imageName_; }
  void setImageName(const QString& name);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString imageName_;
};

}  // namespace quillmeter
