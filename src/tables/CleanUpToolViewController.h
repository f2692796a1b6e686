#pragma once

#include <QWidget>
#include <memory>

#include "controls/Services.h"
#include "measuring/FileObject.h"

class QGraphicsOpacityEffect;

namespace quillmeter {

class ProjectHost;
namespace Ui {
class CleanUpToolViewController;
}

/// The clean-up tool: looks for files in the project's folder that the project does not reference, and lists
/// them. It holds no result until the first search; each search starts afresh. Its maker owns it. Main thread
/// only: the search itself holds up the interface, so it begins when the indicator has had time to show.
class CleanUpToolViewController final : public QWidget {
  Q_OBJECT

 public:
  /// A panel with an empty table without columns. `host` outlives it.
  [[nodiscard]] static std::unique_ptr<CleanUpToolViewController> create(ProjectHost& host,
                                                                         const Services& services);
  ~CleanUpToolViewController() override;

  void initViewCustom();
  /// Searches after a second, unless the panel is closed before. Nothing happens while a search is pending.
  void tapSearchFiles();
  /// Searches now; an alert says so when there is nothing to clean up.
  void lookforFiles();
  /// Reveals the file of a row; nothing happens for a row that is not there.
  void tapViewInFinder(int row);

  /// The unreferenced files in display order.
  [[nodiscard]] const FileList& arrayDifferentFiles() const;

 protected:
  void hideEvent(QHideEvent* event) override;

 private:
  CleanUpToolViewController(ProjectHost& host, const Services& services);
  void showNoSearch();

  ProjectHost& host_;
  Services services_;
  std::unique_ptr<Ui::CleanUpToolViewController> ui_;
  QGraphicsOpacityEffect* searchButtonOpacity_;
  unsigned searches_ = 0;  ///< how often a search was asked for or called off
};

}  // namespace quillmeter
