#pragma once

#include <QWidget>
#include <cstdint>
#include <memory>
#include <vector>

#include "controls/Services.h"
#include "measuring/FileObject.h"

class QPushButton;

namespace quillmeter {

class ChoicePopup;
class DetailsHost;
namespace Ui {
class DetailsViewController;
}

/// The Details tab: every file of a chosen group in a table, with more columns on request; the way from a row
/// to the file browser and from the group to the Export tab. The choice of columns is remembered, the group
/// and everything done to the table is not. Its maker owns it. Main thread only.
class DetailsViewController final : public QWidget {
  Q_OBJECT

 public:
  /// A tab that is set up and shows the host's project. `host` outlives it.
  [[nodiscard]] static std::unique_ptr<DetailsViewController> create(DetailsHost& host,
                                                                     const Services& services);
  ~DetailsViewController() override;

  /// Puts the tab into the state it starts in.
  void initViewCustom();
  /// Makes columns and rows anew for the current filter and check box, in the order of the names.
  void setNumberOfColumnsForTableByFilter();
  /// Opens the filter pop-up, or closes it when it is open.
  void tapFilters();
  /// Shows the group of one of the filter buttons; any other sender leaves the group as it is.
  void tapSelectedFilter(const QObject* sender);
  void tapCheckMinimalVersion();
  /// Ticks the current group in the Export tab and goes there.
  void tapSave();
  /// Reveals the file of a row; nothing happens for a row that is not there.
  void tapViewInFinder(int row);
  /// Closes the filter pop-up at once.
  void forcePopupClose();
  void makeFiltersHiddenAfterAnimation();
  void enableBackFilter();

  /// Its number among the filters of the project's kinds: 0 to 5 under the classic rules, 0 to 6 under the
  /// current ones.
  [[nodiscard]] std::uint32_t currentTableFilter() const { return currentTableFilter_; }
  /// The rows in display order.
  [[nodiscard]] const FileList& currentDataArray() const;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  DetailsViewController(DetailsHost& host, const Services& services);
  void chooseFilterButtons();
  void connectActions();
  void describeControls();

  DetailsHost& host_;
  Services services_;
  std::unique_ptr<Ui::DetailsViewController> ui_;
  std::vector<QPushButton*> filterButtons_;  ///< the button of each filter, in the order of the filters
  ChoicePopup* popup_;
  std::uint32_t currentTableFilter_ = 0;
};

}  // namespace quillmeter
