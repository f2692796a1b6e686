#include "app/OpenPanel.h"

#include <QFile>
#include <QFileDialog>

namespace quillmeter {

std::optional<std::string> QtOpenPanel::runModal(QWidget* parent) {
  QFileDialog dialog(parent, QStringLiteral("Open a project folder"));
  dialog.setFileMode(QFileDialog::Directory);
  dialog.setOption(QFileDialog::ShowDirsOnly);
  dialog.setLabelText(QFileDialog::Accept, QStringLiteral("Open"));
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  return QFile::encodeName(dialog.selectedFiles().constFirst()).toStdString();
}

}  // namespace quillmeter
