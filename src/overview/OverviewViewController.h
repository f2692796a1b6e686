#pragma once

#include <QWidget>
#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "overview/OverviewCaptions.h"
#include "overview/OverviewFigures.h"

class QLabel;

namespace quillmeter {

class ProjectHost;

namespace Ui {
class OverviewViewController;
}

/// The Overview tab: the number of lines in large type with what they are, and ten figures in three
/// groups. The figures are taken
/// from the host's project once, when the tab is made, and never change. Main thread only; its maker owns it.
class OverviewViewController final : public QWidget {
  Q_OBJECT

 public:
  /// A tab that shows the host's project.
  [[nodiscard]] static std::unique_ptr<OverviewViewController> create(ProjectHost& host);
  ~OverviewViewController() override;

  /// Computes and shows all figures.
  void initViewCustom();
  /// Offers below the figures to measure by the current rules, with a sentence that says why; an empty one
  /// offers nothing.
  void offerCurrentRules(const std::string& sentence);
  /// Writes `lines` as the large figure.
  void setTotalLinesOfCode(std::uint64_t lines);

  /// Lines of the source files.
  [[nodiscard]] std::uint64_t totalNumberLines() const { return figures_.totalNumberLines; }
  void setTotalNumberLines(std::uint64_t lines) { figures_.totalNumberLines = lines; }
  /// The empty ones of them.
  [[nodiscard]] std::uint64_t totalNumberLinesWithSpaces() const {
    return figures_.totalNumberLinesWithSpaces;
  }
  void setTotalNumberLinesWithSpaces(std::uint64_t lines) { figures_.totalNumberLinesWithSpaces = lines; }
  /// The comment lines among them.
  [[nodiscard]] std::uint64_t totalNumberLinesWithComments() const {
    return figures_.totalNumberLinesWithComments;
  }
  void setTotalNumberLinesWithComments(std::uint64_t lines) { figures_.totalNumberLinesWithComments = lines; }

  [[nodiscard]] QLabel* lblTotalNumberLines() const;
  /// The label of figure `number`, 1 to 10.
  [[nodiscard]] QLabel* lblSizeMetrics(std::size_t number) const;
  [[nodiscard]] QLabel* lblSizeMetrics7() const { return lblSizeMetrics(7); }
  [[nodiscard]] QLabel* lblSizeMetrics8() const { return lblSizeMetrics(8); }
  [[nodiscard]] QLabel* lblSizeMetrics9() const { return lblSizeMetrics(9); }

 Q_SIGNALS:
  /// The user took the offer.
  void currentRulesRequested();

 protected:
  bool eventFilter(QObject* cardAverages, QEvent* event) override;

 private:
  explicit OverviewViewController(ProjectHost& host);

  void describeGroups();
  void showShares();
  void showFigure(std::size_t number, const std::string& text);
  void alignCards();

  ProjectHost& host_;
  std::unique_ptr<Ui::OverviewViewController> ui_;
  OverviewCaption totalCaption_;
  OverviewCaptions captions_;
  OverviewFigures figures_;
};

}  // namespace quillmeter
