#include "controls/AlertLook.h"

#include <QLayout>
#include <QMargins>
#include <QMessageBox>
#include <QPushButton>

namespace quillmeter {
namespace {

/// The toolkit leaves an empty column for a picture at the left: with it, 24 all around.
constexpr QMargins kMargins(2, 24, 24, 24);

}  // namespace

void giveAlertLook(QMessageBox& box) {
  if (QPushButton* main = box.defaultButton()) main->setProperty("role", QStringLiteral("primary"));
  box.setIcon(QMessageBox::NoIcon);
  // One layout: the order of the buttons is the same on every desktop. Set last, since the roles of the
  // buttons are looked at only then.
  box.setStyleSheet(QStringLiteral("QDialogButtonBox { button-layout: 0; }"));
  box.layout()->setContentsMargins(kMargins);
}

}  // namespace quillmeter
