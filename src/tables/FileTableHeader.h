#pragma once

#include <QHeaderView>

namespace quillmeter {

/// The header of a file table. Its sort arrow stands above the text, since narrow columns have no room beside
/// it. The Tab key reaches it: the arrow keys, Home and End move between the columns, the space bar and
/// Return sort as a click does.
class FileTableHeader final : public QHeaderView {
  Q_OBJECT

 public:
  explicit FileTableHeader(QWidget* parent);

  /// The column that the keyboard has reached.
  [[nodiscard]] int currentSection() const { return current_; }
  /// Sorts as a click on the header of the column does: ascending, or the other way round.
  void sortBy(int section);

 Q_SIGNALS:
  void currentSectionChanged(int section);

 protected:
  void paintSection(QPainter* painter, const QRect& section, int number) const override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void paintArrow(QPainter* painter, const QRect& section) const;
  void paintFocus(QPainter* painter, const QRect& section) const;
  void moveTo(int section);

  int current_ = 0;
};

}  // namespace quillmeter
