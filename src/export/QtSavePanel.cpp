#include "export/QtSavePanel.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QStandardPaths>
#include <utility>

#include "controls/AlertLook.h"
#include "controls/FileDialogLook.h"
#include "support/Paths.h"

namespace quillmeter {
namespace {

QString filterFor(const QString& type) {
  return QFileDialog::tr("%1 files (*.%2)").arg(type.toUpper(), type);
}

/// Where to begin: the folder of the last answer while it exists, else the user's documents or home.
QString firstFolder(const QString& last) {
  for (const QString& folder : {last, QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)}) {
    if (!folder.isEmpty() && QFileInfo(folder).isDir()) return folder;
  }
  return QDir::homePath();
}

/// One save dialog on the screen. It belongs to the window it is a sheet of and deletes itself when answered.
class Sheet final : public QFileDialog {
 public:
  using Completion = std::function<void(std::optional<std::string>)>;

  Sheet(QWidget* window, const SavePanelRequest& request, std::shared_ptr<QString> folder,
        Completion completion)
      : QFileDialog(window, request.title),
        type_(request.allowedFileType),
        folder_(std::move(folder)),
        completion_(std::move(completion)) {
    setAcceptMode(AcceptSave);
    setFileMode(AnyFile);
    setOption(DontConfirmOverwrite);
    giveFileDialogLook(*this);
    setNameFilters({filterFor(type_), tr("All files (*)")});
    setDirectory(firstFolder(*folder_));
    setLabelText(LookIn, tr("Save in:"));
    selectFile(request.suggestedName);
    connect(this, &QFileDialog::finished, this, &Sheet::finishWith);
  }

 private:
  void finishWith(int result) {
    const QStringList chosen = selectedFiles();
    if (result != Accepted || chosen.isEmpty()) return answer(std::nullopt);
    *folder_ = QFileInfo(chosen.front()).absolutePath();
    const std::string path = QFile::encodeName(chosen.front()).toStdString();
    const QString written =
        QFile::decodeName(QByteArray::fromStdString(withDefaultExtension(path, type_.toStdString())));
    if (QFileInfo(written).isFile()) return askToReplace(written, path);
    answer(path);
  }

  void askToReplace(const QString& written, const std::string& path) {
    auto* question = new QMessageBox(
        QMessageBox::NoIcon, windowTitle(),
        tr("“%1” already exists. Do you want to replace it?").arg(QFileInfo(written).fileName()),
        QMessageBox::NoButton, parentWidget());
    question->setTextFormat(Qt::PlainText);
    question->setAttribute(Qt::WA_DeleteOnClose);
    const QPushButton* replace = question->addButton(tr("Replace"), QMessageBox::AcceptRole);
    question->setDefaultButton(question->addButton(QMessageBox::Cancel));
    giveAlertLook(*question);
    connect(question, &QMessageBox::finished, this, [this, question, replace, path] {
      if (question->clickedButton() == replace) return answer(path);
      openAgainAt(QFile::decodeName(path.c_str()));
    });
    question->open();
  }

  /// A panel of the desktop's theme begins afresh each time it is opened.
  void openAgainAt(const QString& path) {
    setDirectory(QFileInfo(path).absolutePath());
    selectFile(QFileInfo(path).fileName());
    open();
  }

  void answer(const std::optional<std::string>& path) {
    deleteLater();
    if (completion_) std::exchange(completion_, nullptr)(path);
  }

  QString type_;
  std::shared_ptr<QString> folder_;
  Completion completion_;
};

}  // namespace

void QtSavePanel::beginSheet(QWidget* window, const SavePanelRequest& request,
                             std::function<void(std::optional<std::string> path)> completion) {
  auto* sheet = new Sheet(window, request, folder_, std::move(completion));
  sheet->open();
}

}  // namespace quillmeter
