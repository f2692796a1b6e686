#include "controls/QtAlerts.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>

#include "controls/AlertLook.h"

namespace quillmeter {
namespace {

/// The toolkit's box takes Esc and the close button only when it can guess a button that they stand for; here
/// they always dismiss.
class AlertBox final : public QMessageBox {
 public:
  using QMessageBox::QMessageBox;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Escape) {
      dismiss();
    } else {
      QMessageBox::keyPressEvent(event);
    }
  }
  void closeEvent(QCloseEvent* event) override {
    event->accept();
    dismiss();
  }

 private:
  void dismiss() {
    if (buttons().size() == 1) {
      buttons().constFirst()->click();
    } else {
      done(-1);
    }
  }
};

}  // namespace

std::optional<int> QtAlerts::runModal(QWidget* parent, const QString& message, const QStringList& buttons) {
  // On the heap and watched: a box goes with its parent, and the parent may go while the box is up.
  const QPointer<AlertBox> box = new AlertBox(parent);
  box->setWindowTitle(QStringLiteral("Quillmeter"));
  box->setWindowModality(Qt::ApplicationModal);
  box->setTextFormat(Qt::PlainText);
  box->setText(message);
  for (const QString& button : buttons)
    box->addButton(button, QMessageBox::ActionRole);
  const QList<QAbstractButton*> made = box->buttons();
  if (!made.isEmpty()) box->setDefaultButton(qobject_cast<QPushButton*>(made.constFirst()));
  giveAlertLook(*box);
  box->exec();
  if (box.isNull()) return std::nullopt;
  const auto index = box->buttons().indexOf(box->clickedButton());
  delete box;
  return index < 0 ? std::nullopt : std::optional<int>(static_cast<int>(index));
}

}  // namespace quillmeter
