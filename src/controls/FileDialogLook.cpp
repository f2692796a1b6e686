#include "controls/FileDialogLook.h"

#include <QFileDialog>
#include <QHeaderView>
#include <QScreen>
#include <QSplitter>
#include <QTreeView>

namespace quillmeter {
namespace {

constexpr QSize kSize(860, 540);
constexpr int kPlacesWidth = 180;

}  // namespace

void giveFileDialogLook(QFileDialog& dialog) {
  dialog.setOption(QFileDialog::ReadOnly);
  dialog.setViewMode(QFileDialog::Detail);
  QSize size = kSize;
  if (const QScreen* screen = dialog.screen()) size = size.boundedTo(screen->availableSize() * 9 / 10);
  dialog.resize(size);
  // The desktop's own panel has none of these.
  if (auto* places = dialog.findChild<QSplitter*>(QStringLiteral("splitter")))
    places->setSizes({kPlacesWidth, size.width() - kPlacesWidth});
  if (auto* details = dialog.findChild<QTreeView*>(QStringLiteral("treeView"))) {
    details->header()->setStretchLastSection(false);
    details->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    details->header()->setSectionResizeMode(0, QHeaderView::Stretch);
  }
}

}  // namespace quillmeter
