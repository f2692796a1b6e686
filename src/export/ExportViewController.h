#pragma once

#include <QCheckBox>
#include <QPointer>
#include <QWidget>
#include <array>
#include <memory>
#include <optional>
#include <string>

#include "controls/Services.h"
#include "export/ExportSelection.h"

class QLabel;
class QPushButton;

namespace Ui {
class ExportViewController;
}

namespace quillmeter {

class ExportHost;
class MeasuredProject;

/// The Export tab: the user picks kinds of files and a form, names a file in a save sheet, and the tab writes
/// it. Everything happens on the main thread. The project is asked of the host at the moment of writing; a
/// tab that is destroyed while the sheet is open writes nothing.
class ExportViewController final : public QWidget {
  Q_OBJECT

 public:
  /// The tab, ready to be shown. `host` outlives it.
  [[nodiscard]] static std::unique_ptr<ExportViewController> create(ExportHost& host,
                                                                    const Services& services);
  ~ExportViewController() override;

  /// Makes the PDF report the chosen form.
  void initViewCustom();

  /// Whether files of a kind go into the export: C and C++ sources, headers, Objective-C sources, images,
  /// interface files, Swift sources. A box of a kind that the project's rules do not know is hidden and not
  /// asked.
  [[nodiscard]] QCheckBox* checkbox1() const { return checkboxes_[0]; }
  [[nodiscard]] QCheckBox* checkbox2() const { return checkboxes_[1]; }
  [[nodiscard]] QCheckBox* checkbox3() const { return checkboxes_[2]; }
  [[nodiscard]] QCheckBox* checkbox4() const { return checkboxes_[3]; }
  [[nodiscard]] QCheckBox* checkbox5() const { return checkboxes_[4]; }
  [[nodiscard]] QCheckBox* checkbox6() const { return checkboxes_[5]; }
  void setCheckbox1(QCheckBox* checkbox) { checkboxes_[0] = checkbox; }
  void setCheckbox2(QCheckBox* checkbox) { checkboxes_[1] = checkbox; }
  void setCheckbox3(QCheckBox* checkbox) { checkboxes_[2] = checkbox; }
  void setCheckbox4(QCheckBox* checkbox) { checkboxes_[3] = checkbox; }
  void setCheckbox5(QCheckBox* checkbox) { checkboxes_[4] = checkbox; }
  void setCheckbox6(QCheckBox* checkbox) { checkboxes_[5] = checkbox; }

  /// Ticks the boxes of exactly these groups.
  void setGroups(const FileGroups& groups);

  [[nodiscard]] QCheckBox* btnTypePDF() const;
  [[nodiscard]] QCheckBox* btnTypeCSV() const;
  [[nodiscard]] QPushButton* btnGenerate() const;
  [[nodiscard]] QLabel* lblTextTitle1() const;

  /// A click on one of the two form buttons, whose state has changed already: one of them stays chosen.
  void tapExportType(const QObject* sender);
  /// Asks for a destination and writes the file; an alert when no kind is chosen.
  void tapGenerate();
  void showSaveDone();

 private:
  ExportViewController(ExportHost& host, Services services);

  void setUpCaptions();
  void save(const std::optional<std::string>& chosenPath, bool pdf);
  void exportTo(const std::string& path, const std::shared_ptr<const MeasuredProject>& project,
                bool pdf) const;
  void showTooLittleMemory();
  void showTypes();
  [[nodiscard]] FileGroups groups() const;

  ExportHost& host_;
  Services services_;
  std::unique_ptr<::Ui::ExportViewController> ui_;
  std::array<QPointer<QCheckBox>, 6> checkboxes_;  ///< in the order of `kBoxGroups`
};

}  // namespace quillmeter
