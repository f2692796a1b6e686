#pragma once

#include <QObject>
#include <QPointer>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "app/CustomDragViewDelegate.h"
#include "app/RulesChoice.h"
#include "controls/Services.h"
#include "stats/StatsHost.h"

namespace quillmeter {

namespace Ui {
class AppDelegate;
}

class CustomShapeWindow;
struct LeftOut;
class OpenPanel;
class MeasuredProject;
class ProjectRead;
class ProjectReader;
class StatsWindowController;
class WindowButton;

/// Runs the application: owns the main screen, takes a project from the user, has it read on a thread of its
/// own, and hands over to the statistics window, which sends the user back. The main screen is idle, reading,
/// or hidden while the statistics window shows.
///
/// Owns the main screen, the reads, the project last read and the statistics window. Main thread only, but
/// for `openParsingFileDelayed`. Destroying it in the middle of a read waits for the reader to come to its
/// quick end.
class AppDelegate final : public QObject, public CustomDragViewDelegate, public StatsHost {
  Q_OBJECT

 public:
  /// Gets plain diagnostic lines, also on readers' threads.
  using LogSink = std::function<void(std::string_view)>;

  AppDelegate(Services services, std::unique_ptr<OpenPanel> openPanel, LogSink log = {});
  ~AppDelegate() override;

  /// Reads projects by `rules`, until the user chooses others.
  void startWithRules(ProjectRules rules) { rulesChoice_.startWith(rules); }
  /// Sets the main screen up and shows it. To be called once.
  void applicationDidFinishLaunching();
  /// Closing the last window quits the application.
  [[nodiscard]] bool applicationShouldTerminateAfterLastWindowClosed() const { return true; }

  // From the main screen's controls.
  void tapOpenFile();
  void tapRateOnStore();
  void tapViewOnline();
  /// The main screen became the active window: its buttons are drawn anew.
  void mainWindowChanged();

  // From the drop area.
  void draggingEntered(CustomDragView* view) override;
  void draggingInvalid(CustomDragView* view) override;
  void draggingExited(CustomDragView* view) override;
  /// Opens the project in a folder, or the folder itself as a project bundle, 0.5 seconds later. The path is
  /// bytes, absolute and without a trailing "/".
  void fileSelected(const std::string& folder) override;

  /// Reads the project bundle at `path` on a thread of its own. A read that is under way is given up: what it
  /// would have shown is not wanted any more.
  void openParsingFile(const std::string& path);
  /// The body of a read, on its thread.
  static void openParsingFileDelayed(const std::string& path, const LogSink& log, ProjectRead& read);

  // From the statistics window.
  [[nodiscard]] std::shared_ptr<const MeasuredProject> parserProject() const override {
    return parserProject_;
  }
  void showBackMainWindow() override;
  [[nodiscard]] std::string rulesOffer() const override { return rulesOffer_; }
  void measureBy(ProjectRules rules) override;
  void quitApplication() override;

  [[nodiscard]] CustomShapeWindow* window() const { return window_.get(); }
  /// The statistics window; null when there is none.
  [[nodiscard]] StatsWindowController* controllerWindow() const { return controllerWindow_.get(); }
  /// The outlets of the main screen.
  [[nodiscard]] const Ui::AppDelegate& outlets() const { return *ui_; }
  [[nodiscard]] WindowButton* closeButton() const { return closeButton_; }
  [[nodiscard]] WindowButton* minimizeButton() const { return minimizeButton_; }
  [[nodiscard]] WindowButton* maximizeButton() const { return maximizeButton_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void progressParsingProjectStarted();
  void progressParsingProject(double fraction);
  void progressParsingProjectEnded(const std::shared_ptr<ProjectReader>& project, const LeftOut& leftOut);

  void makeWindowButtons();
  void connectControls();
  void chooseProjectIn(const std::string& folder);
  void showImages(const QString& middle, const QString& middleOver);
  void showHint(const QString& hint, const QString& caption);
  void showOpenButton(bool shown);
  void setReading(bool reading);
  void showRulesOffer(const QString& sentence, const QString& caption);
  void hideRulesOffer();
  void showIdleDropArea();
  void showStatsWindow();
  /// Takes the statistics window from the screen now and destroys it when its own calls have returned.
  void retireStatsWindow();
  void log(std::string_view line) const;

  Services services_;
  std::unique_ptr<OpenPanel> openPanel_;
  LogSink log_;
  std::unique_ptr<Ui::AppDelegate> ui_;
  std::unique_ptr<CustomShapeWindow> window_;
  std::shared_ptr<const MeasuredProject> parserProject_;
  std::unique_ptr<StatsWindowController> controllerWindow_;
  WindowButton* closeButton_ = nullptr;  ///< these three belong to the main screen
  WindowButton* minimizeButton_ = nullptr;
  WindowButton* maximizeButton_ = nullptr;
  RulesChoice rulesChoice_;
  ProjectRules rules_ = ProjectRules::classic;  ///< of the read begun last
  std::string rulesOffer_;                      ///< for the project last read
  std::string lastBundle_;                      ///< the one whose read was begun last
  std::string lastFolder_;                      ///< of the project opened last; empty before the first
  bool reading_ = false;                        ///< what the main screen shows
  QPointer<ProjectRead> read_;  ///< the read whose messages are shown; reads are children of this object
};

}  // namespace quillmeter
