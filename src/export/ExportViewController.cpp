#include "export/ExportViewController.h"

#include <QLabel>
#include <QPushButton>
#include <new>
#include <string_view>
#include <utility>
#include <vector>

#include "analysis/MeasuredProject.h"
#include "controls/AccessibleWidgets.h"
#include "controls/BackgroundStyle.h"
#include "controls/LabelSides.h"
#include "export/Export.h"
#include "export/ExportHost.h"
#include "export/ReportChart.h"
#include "support/Paths.h"
#include "ui_ExportViewController.h"

namespace quillmeter {
namespace {

constexpr std::chrono::milliseconds kSaveDoneDelay{1000};

/// What the six boxes stand for.
constexpr std::array kBoxGroups = {FileGroup::c,      FileGroup::headers,        FileGroup::objectiveC,
                                   FileGroup::images, FileGroup::interfaceFiles, FileGroup::swift};

bool hasGroup(const FileKindTable& kinds, FileGroup group) {
  return kinds.allGroups().contains(group);
}

/// The extensions of all groups that a box stands for: storyboards go with the interface files.
QString typesOf(const FileKindTable& kinds, FileGroup boxGroup) {
  std::vector<std::string_view> extensions;
  for (const FileGroupEntry& entry : kinds.groups()) {
    if (!kinds.chosenBy(boxGroup).contains(entry.group)) continue;
    const auto ofGroup = kinds.extensions(entry.group);
    extensions.insert(extensions.end(), ofGroup.begin(), ofGroup.end());
  }
  return QString::fromStdString(extensionsText(extensions));
}

bool isOn(const QCheckBox* checkbox) {
  return checkbox != nullptr && checkbox->checkState() == Qt::Checked;
}

}  // namespace

std::unique_ptr<ExportViewController> ExportViewController::create(ExportHost& host,
                                                                   const Services& services) {
  std::unique_ptr<ExportViewController> controller(new ExportViewController(host, services));
  controller->initViewCustom();
  return controller;
}

ExportViewController::ExportViewController(ExportHost& host, Services services)
    : host_(host), services_(std::move(services)), ui_(std::make_unique<Ui::ExportViewController>()) {
  ui_->setupUi(this);
  keepLabelsWhereReadingBegins(this);
  checkboxes_ = {ui_->checkbox1, ui_->checkbox2, ui_->checkbox3,
                 ui_->checkbox4, ui_->checkbox5, ui_->checkbox6};
  setUpCaptions();
  for (const QCheckBox* button : {ui_->btnTypePDF, ui_->btnTypeCSV}) {
    connect(button, &QCheckBox::clicked, this, [this, button] { tapExportType(button); });
  }
  connect(ui_->btnGenerate, &QPushButton::clicked, this, &ExportViewController::tapGenerate);
}

ExportViewController::~ExportViewController() = default;

void ExportViewController::setUpCaptions() {
  ui_->lblCheckbox1Types->setButton(ui_->checkbox1);
  ui_->lblCheckbox2Types->setButton(ui_->checkbox2);
  ui_->lblCheckbox3Types->setButton(ui_->checkbox3);
  ui_->lblCheckbox4Types->setButton(ui_->checkbox4);
  ui_->lblCheckbox5Types->setButton(ui_->checkbox5);
  ui_->lblCheckbox6Types->setButton(ui_->checkbox6);
  ui_->lblTypePDF->setButton(ui_->btnTypePDF);
  ui_->lblTypeCSV->setButton(ui_->btnTypeCSV);
  for (QWidget* const group : {static_cast<QWidget*>(this), static_cast<QWidget*>(ui_->viewKinds),
                               static_cast<QWidget*>(ui_->viewForm)})
    setAccessibleKind(group, AccessibleKind::group);
  for (QCheckBox* const form : {ui_->btnTypePDF, ui_->btnTypeCSV})
    setAccessibleKind(form, AccessibleKind::choice);
}

void ExportViewController::initViewCustom() {
  ui_->btnTypePDF->setChecked(true);
  ui_->btnTypeCSV->setChecked(false);
  setRaisedBackgroundStyle(ui_->lblTextTitle1);
  showTypes();
}

/// Says beside each box which extensions it stands for, and hides the boxes of kinds that there are not.
void ExportViewController::showTypes() {
  const auto project = host_.parserProject();
  if (!project) return;
  const std::array labels{ui_->lblCheckbox1Types, ui_->lblCheckbox2Types, ui_->lblCheckbox3Types,
                          ui_->lblCheckbox4Types, ui_->lblCheckbox5Types, ui_->lblCheckbox6Types};
  for (std::size_t box = 0; box < kBoxGroups.size(); ++box) {
    const QString types = typesOf(project->kinds(), kBoxGroups.at(box));
    labels.at(box)->setText(types);
    checkboxes_.at(box)->setAccessibleDescription(tr("Files of the types %1").arg(types));
    const bool isThere = hasGroup(project->kinds(), kBoxGroups.at(box));
    labels.at(box)->setVisible(isThere);
    checkboxes_.at(box)->setVisible(isThere);
  }
  if (hasGroup(project->kinds(), FileGroup::storyboards)) ui_->checkbox5->setText(tr("Interface files"));
}

QCheckBox* ExportViewController::btnTypePDF() const {
  return ui_->btnTypePDF;
}

QCheckBox* ExportViewController::btnTypeCSV() const {
  return ui_->btnTypeCSV;
}

QPushButton* ExportViewController::btnGenerate() const {
  return ui_->btnGenerate;
}

QLabel* ExportViewController::lblTextTitle1() const {
  return ui_->lblTextTitle1;
}

void ExportViewController::tapExportType(const QObject* sender) {
  const auto choose = [](QCheckBox& tapped, QCheckBox& other) {
    if (!tapped.isChecked()) {
      tapped.setChecked(true);
    } else {
      other.setChecked(false);
    }
  };
  if (sender == ui_->btnTypePDF) {
    choose(*ui_->btnTypePDF, *ui_->btnTypeCSV);
  } else if (sender == ui_->btnTypeCSV) {
    choose(*ui_->btnTypeCSV, *ui_->btnTypePDF);
  }
}

FileGroups ExportViewController::groups() const {
  FileGroups groups;
  const auto project = host_.parserProject();
  if (!project) return groups;
  const FileKindTable& kinds = project->kinds();
  for (std::size_t box = 0; box < kBoxGroups.size(); ++box) {
    const FileGroup group = kBoxGroups.at(box);
    if (hasGroup(kinds, group) && isOn(checkboxes_.at(box))) groups.insert(kinds.chosenBy(group));
  }
  return groups;
}

void ExportViewController::setGroups(const FileGroups& groups) {
  for (std::size_t box = 0; box < kBoxGroups.size(); ++box)
    checkboxes_.at(box)->setChecked(groups.contains(kBoxGroups.at(box)));
}

void ExportViewController::tapGenerate() {
  if (groups().empty()) {
    services_.alerts->runModal(window(), tr("Please select at least one of the export options."), {tr("Ok")});
    return;
  }
  const bool pdf = isOn(ui_->btnTypePDF);
  const SavePanelRequest request{.title = QStringLiteral("Export"),
                                 .allowedFileType = pdf ? QStringLiteral("pdf") : QStringLiteral("csv"),
                                 .suggestedName = QStringLiteral("statistics")};
  services_.savePanel->beginSheet(window(), request,
                                  [self = QPointer(this), pdf](const std::optional<std::string>& path) {
                                    if (self != nullptr) self->save(path, pdf);
                                  });
}

void ExportViewController::save(const std::optional<std::string>& chosenPath, bool pdf) {
  if (!chosenPath) return;
  const std::string path = withDefaultExtension(*chosenPath, pdf ? "pdf" : "csv");
  const auto project = host_.parserProject();
  if (!project) return;
  try {
    exportTo(path, project, pdf);
    services_.delayedCalls->performAfterDelay(this, kSaveDoneDelay, [this] { showSaveDone(); });
  } catch (const std::bad_alloc&) {
    services_.delayedCalls->performAfterDelay(this, kSaveDoneDelay, [this] { showTooLittleMemory(); });
  }
}

void ExportViewController::exportTo(const std::string& path,
                                    const std::shared_ptr<const MeasuredProject>& project, bool pdf) const {
  // Whatever comes of writing the file, the user is told that the export has finished.
  if (pdf) {
    ReportSource source;
    source.project = project;
    source.overviewTexts = host_.overviewTexts();
    source.chart = host_.reportChart();
    static_cast<void>(exportPdf(source, groups(), path));
  } else {
    static_cast<void>(exportCsv(*project, groups(), path));
  }
}

void ExportViewController::showSaveDone() {
  services_.alerts->runModal(window(), tr("Exporting successfully finished."), {tr("Ok")});
}

void ExportViewController::showTooLittleMemory() {
  services_.alerts->runModal(window(), tr("Not enough memory to export the project."), {tr("Ok")});
}

}  // namespace quillmeter
