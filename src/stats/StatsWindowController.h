#pragma once

#include <QWidget>
#include <array>
#include <initializer_list>
#include <memory>

#include "charts/ChartsHost.h"
#include "controls/Services.h"
#include "export/ExportHost.h"
#include "tables/DetailsHost.h"

class QPushButton;

namespace quillmeter {

class ChartsViewController;
class CleanUpToolViewController;
class DetailsViewController;
class ExportViewController;
class OverviewViewController;
class StatsHost;

namespace Ui {
class StatsWindowController;
}

/// The statistics window, which takes the main screen's place once a project has been read: a column of tab
/// buttons, and the chosen tab beside it.
///
/// It owns the four tabs for its whole life and is what they see of the application. Exactly one tab is a
/// child of `viewRight`, and exactly the button of that tab is on; the others have no parent. It keeps the
/// project it was made for, whatever the application reads meanwhile. It never deletes itself: whoever asked
/// for it owns it. Main thread only.
class StatsWindowController final : public QWidget, public ChartsHost, public ExportHost, public DetailsHost {
  Q_OBJECT

 public:
  /// The window of the host's project, loaded and not yet shown. `host` outlives it.
  [[nodiscard]] static std::unique_ptr<StatsWindowController> create(StatsHost& host,
                                                                     const Services& services);
  ~StatsWindowController() override;

  /// Makes the tabs and shows the first; plans the ratings reminder.
  void windowDidLoad();
  /// Has this showing counted in 4 seconds as `showRatingsReminderWindowThread` does, also while an alert is
  /// up then, and also when the window has gone by then.
  void showRatingsReminderWindow();
  /// Counts this showing, and asks for a review when it is time. Blocks while that alert is up.
  void showRatingsReminderWindowThread();

  void tapOverviewTab();
  void tapDetailsTab();
  /// Shows the charts and lets the chosen one grow in, also when the tab is shown already.
  void tapChartsTab();
  void tapExportTab() override;
  /// Returns to the main screen when the user confirms it; any other answer leaves everything as it was.
  void tapCloseTab();
  /// Ends the application when the user confirms that this window closes.
  void quit();
  /// Opens the clean-up tool in a window of its own, or brings it to the front.
  void tapCleanUpTool();

  /// Closes the window at once, as the application does when it goes on to another project. A confirmation
  /// that is still up loses its effect.
  void closeWithoutAsking();

  [[nodiscard]] std::shared_ptr<const MeasuredProject> parserProject() const override { return project_; }
  [[nodiscard]] SourceTotals sourceTotals() const override;
  [[nodiscard]] OverviewTexts overviewTexts() const override;
  [[nodiscard]] std::shared_ptr<const ReportChart> reportChart() const override;
  void setExportGroups(const FileGroups& groups) override;

  [[nodiscard]] OverviewViewController* overviewController() const { return overviewController_.get(); }
  [[nodiscard]] DetailsViewController* detailsViewController() const { return detailsViewController_.get(); }
  [[nodiscard]] ChartsViewController* chartsViewController() const { return chartsViewController_.get(); }
  [[nodiscard]] ExportViewController* exportViewController() const { return exportViewController_.get(); }
  /// Null until the tool was opened for the first time.
  [[nodiscard]] CleanUpToolViewController* cleanUpTool() const { return cleanUpTool_.get(); }
  [[nodiscard]] QWidget* viewLeft() const;
  [[nodiscard]] QWidget* viewRight() const;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  StatsWindowController(StatsHost& host, const Services& services);

  void setPictures();
  void showRules();
  void openInsideScreen();
  void describeControls();
  void connectControls();
  void showTab(QPushButton* button, std::initializer_list<QWidget*> others, QWidget* view);
  void addToViewRight(QWidget* view);
  [[nodiscard]] bool userConfirmsClosing();

  StatsHost& host_;
  Services services_;
  std::shared_ptr<const MeasuredProject> project_;
  std::unique_ptr<Ui::StatsWindowController> ui_;
  std::unique_ptr<OverviewViewController> overviewController_;
  std::unique_ptr<DetailsViewController> detailsViewController_;
  std::unique_ptr<ChartsViewController> chartsViewController_;
  std::unique_ptr<ExportViewController> exportViewController_;
  std::unique_ptr<CleanUpToolViewController> cleanUpTool_;
  bool closesWithoutAsking_ = false;
};

}  // namespace quillmeter
