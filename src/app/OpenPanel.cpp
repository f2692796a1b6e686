#include "app/OpenPanel.h"

#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QPointer>

#include "controls/FileDialogLook.h"

namespace quillmeter {

std::optional<std::string> QtOpenPanel::runModal(QWidget* parent, const std::string& folder) {
  // On the heap and watched: the panel goes with its parent, and the parent may go while the panel is up.
  const QPointer<QFileDialog> dialog = new QFileDialog(parent, QStringLiteral("Open a project folder"));
  dialog->setFileMode(QFileDialog::Directory);
  dialog->setOption(QFileDialog::ShowDirsOnly);
  giveFileDialogLook(*dialog);
  const QString start = QFile::decodeName(QByteArray::fromStdString(folder));
  if (!start.isEmpty() && QFileInfo(start).isDir()) dialog->setDirectory(start);
  dialog->setLabelText(QFileDialog::Accept, QStringLiteral("Open"));
  const bool accepted = dialog->exec() == QDialog::Accepted;
  if (dialog.isNull()) return std::nullopt;
  const QStringList chosen = dialog->selectedFiles();
  delete dialog;
  if (!accepted || chosen.isEmpty()) return std::nullopt;
  return QFile::encodeName(chosen.constFirst()).toStdString();
}

}  // namespace quillmeter
