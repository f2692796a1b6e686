#include "export/ExportViewController.h"

#include <gmock/gmock.h>

#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTest>

#include "controls/ApplicationTheme.h"
#include "controls/Theme.h"
#include "export/ExportHost.h"
#include "export/FakeReportChart.h"
#include "helpers/FakeServices.h"
#include "helpers/KindsWithHpp.h"
#include "helpers/ProjectFixture.h"
#include "xcode/CurrentKinds.h"

namespace quillmeter {
namespace {

using ::testing::IsEmpty;
using testing::readFile;
using testing::record;
using ::testing::SizeIs;
using ::testing::StartsWith;
using namespace std::chrono_literals;

class FakeExportHost final : public ExportHost {
 public:
  [[nodiscard]] std::shared_ptr<const MeasuredProject> parserProject() const override { return project; }
  [[nodiscard]] OverviewTexts overviewTexts() const override { return {"2", "1", "0"}; }
  [[nodiscard]] std::shared_ptr<const ReportChart> reportChart() const override { return chart; }

  std::shared_ptr<const MeasuredProject> project =
      testing::projectWith({record({.name = "b.m"}), record({.name = "A.h"}), record({.name = "c.png"})});
  std::shared_ptr<testing::FakeReportChart> chart = std::make_shared<testing::FakeReportChart>();
};

class ExportTab : public ::testing::Test {
 protected:
  ExportTab() : tab(ExportViewController::create(host, fakes.services())) {}

  [[nodiscard]] std::vector<QCheckBox*> kinds() const {
    return {tab->checkbox1(), tab->checkbox2(), tab->checkbox3(), tab->checkbox4(), tab->checkbox5()};
  }
  void chooseNothing() const {
    for (QCheckBox* kind : kinds())
      kind->setChecked(false);
  }
  void chooseCsv() const { tab->btnTypeCSV()->click(); }

  testing::TemporaryFolder folder;
  FakeExportHost host;
  testing::FakeServices fakes;
  std::unique_ptr<ExportViewController> tab;
};

TEST_F(ExportTab, BeginsWithAPdfReportOfEverything) {
  EXPECT_TRUE(tab->btnTypePDF()->isChecked());
  EXPECT_FALSE(tab->btnTypeCSV()->isChecked());
  for (const QCheckBox* kind : kinds())
    EXPECT_TRUE(kind->isChecked()) << kind->objectName().toStdString();
  EXPECT_EQ(tab->lblTextTitle1()->text(), QStringLiteral("Export"));
  EXPECT_EQ(tab->lblTextTitle1()->property("backgroundStyle").toInt(), 2);
}

TEST_F(ExportTab, SaysBesideEachBoxWhichTypesItStandsFor) {
  const auto types = [this](int box) {
    return tab->findChild<QLabel*>(QStringLiteral("lblCheckbox%1Types").arg(box))->text();
  };
  EXPECT_EQ(types(1), QStringLiteral(".c, .cpp"));
  EXPECT_EQ(types(2), QStringLiteral(".h, .hh, .pch"));
  EXPECT_EQ(types(3), QStringLiteral(".m, .mm"));
  EXPECT_EQ(types(4), QStringLiteral(".jpg, .png, .tiff, .icns"));
  EXPECT_EQ(types(5), QStringLiteral(".xib"));
  for (int box = 1; box <= 5; ++box) {
    EXPECT_EQ(kinds()[static_cast<std::size_t>(box - 1)]->accessibleDescription(),
              QStringLiteral("Files of the types ") + types(box));
  }
}

TEST_F(ExportTab, NamesTheTypesOfAProjectWithATableOfItsOwn) {
  host.project = testing::projectWith({}, "Fixture", testing::kindsWithHpp());
  tab = ExportViewController::create(host, fakes.services());
  EXPECT_EQ(tab->findChild<QLabel*>(QStringLiteral("lblCheckbox2Types"))->text(),
            QStringLiteral(".h, .hh, .pch, .hpp"));
}

TEST_F(ExportTab, AClickOnACaptionIsAClickOnItsBox) {
  tab->resize(700, 600);
  tab->show();
  const auto click = [this](const char* caption) {
    QTest::mouseClick(tab->findChild<QLabel*>(QLatin1String(caption)), Qt::LeftButton, {}, QPoint(4, 4));
  };
  click("lblCheckbox2Types");
  EXPECT_FALSE(tab->checkbox2()->isChecked());
  click("lblCheckbox2Types");
  EXPECT_TRUE(tab->checkbox2()->isChecked());
  click("lblTypeCSV");
  EXPECT_TRUE(tab->btnTypeCSV()->isChecked());
  EXPECT_FALSE(tab->btnTypePDF()->isChecked());
  auto* caption = tab->findChild<QLabel*>(QStringLiteral("lblCheckbox1Types"));
  QTest::mousePress(caption, Qt::LeftButton, {}, QPoint(4, 4));
  QTest::mouseRelease(caption, Qt::LeftButton, {}, QPoint(4, 200));
  EXPECT_TRUE(tab->checkbox1()->isChecked()) << "let go elsewhere";
}

TEST_F(ExportTab, HeadingsSayWhatTheyHead) {
  EXPECT_EQ(tab->findChild<QLabel*>(QStringLiteral("lblKinds"))->text(), QStringLiteral("Files to export"));
  EXPECT_EQ(tab->findChild<QLabel*>(QStringLiteral("lblForm"))->text(), QStringLiteral("File format"));
}

TEST_F(ExportTab, TheChosenFormHasADotAndAChosenKindHasNone) {
  tab->setStyleSheet(styleSheetFor(themeFor(tab->palette())));
  tab->resize(700, 600);
  tab->show();
  const auto centreOfTheBox = [](QCheckBox* box) {
    QStyleOptionButton option;
    option.initFrom(box);
    const QRect indicator = box->style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, box);
    return box->grab().toImage().pixelColor(indicator.center());
  };
  EXPECT_EQ(centreOfTheBox(tab->btnTypePDF()), QColor(Qt::white));
  EXPECT_EQ(centreOfTheBox(tab->btnTypeCSV()), themeFor(tab->palette()).card);
  EXPECT_EQ(tab->btnTypePDF()->property("role"), QStringLiteral("radio"));
}

TEST_F(ExportTab, OneFormIsChosenAtAnyTime) {
  tab->btnTypeCSV()->click();
  EXPECT_FALSE(tab->btnTypePDF()->isChecked());
  EXPECT_TRUE(tab->btnTypeCSV()->isChecked());
  tab->btnTypeCSV()->click();
  EXPECT_FALSE(tab->btnTypePDF()->isChecked());
  EXPECT_TRUE(tab->btnTypeCSV()->isChecked());
  tab->btnTypePDF()->click();
  EXPECT_TRUE(tab->btnTypePDF()->isChecked());
  EXPECT_FALSE(tab->btnTypeCSV()->isChecked());
  tab->btnTypePDF()->click();
  EXPECT_TRUE(tab->btnTypePDF()->isChecked());
  EXPECT_FALSE(tab->btnTypeCSV()->isChecked());
}

TEST_F(ExportTab, OtherSendersChooseNoForm) {
  tab->btnTypePDF()->setChecked(false);
  tab->tapExportType(tab->btnGenerate());
  tab->tapExportType(nullptr);
  EXPECT_FALSE(tab->btnTypePDF()->isChecked());
  EXPECT_FALSE(tab->btnTypeCSV()->isChecked());
}

TEST_F(ExportTab, FormIsChosenWithTheKeyboardToo) {
  tab->show();
  tab->btnTypeCSV()->setFocus();
  QTest::keyClick(tab->btnTypeCSV(), Qt::Key_Space);
  EXPECT_TRUE(tab->btnTypeCSV()->isChecked());
  EXPECT_FALSE(tab->btnTypePDF()->isChecked());
}

TEST_F(ExportTab, TabKeyVisitsTheControlsFromTopToBottom) {
  const std::vector<QWidget*> order = {tab->checkbox1(),  tab->checkbox2(),  tab->checkbox3(),
                                       tab->checkbox4(),  tab->checkbox5(),  tab->btnTypePDF(),
                                       tab->btnTypeCSV(), tab->btnGenerate()};
  for (std::size_t at = 0; at + 1 < order.size(); ++at) {
    const QWidget* next = order[at]->nextInFocusChain();
    while (next->focusPolicy() == Qt::NoFocus || next->isHidden())
      next = next->nextInFocusChain();
    EXPECT_EQ(next, order[at + 1]) << at;
  }
}

TEST_F(ExportTab, NothingChosenIsAnAlert) {
  chooseNothing();
  tab->btnGenerate()->click();
  ASSERT_THAT(fakes.alerts->shown, SizeIs(1));
  EXPECT_EQ(fakes.alerts->shown[0].message,
            QStringLiteral("Please select at least one of the export options."));
  EXPECT_EQ(fakes.alerts->shown[0].buttons, QStringList{QStringLiteral("Ok")});
  EXPECT_THAT(fakes.savePanel->requests, IsEmpty());
}

TEST_F(ExportTab, AnyOneKindIsEnough) {
  for (QCheckBox* kind : kinds()) {
    chooseNothing();
    kind->setChecked(true);
    tab->tapGenerate();
  }
  EXPECT_THAT(fakes.alerts->shown, IsEmpty());
  EXPECT_THAT(fakes.savePanel->requests, SizeIs(5));
}

TEST_F(ExportTab, AsksForAFileOfTheChosenForm) {
  tab->tapGenerate();
  chooseCsv();
  tab->tapGenerate();
  ASSERT_THAT(fakes.savePanel->requests, SizeIs(2));
  EXPECT_EQ(fakes.savePanel->requests[0].title, QStringLiteral("Export"));
  EXPECT_EQ(fakes.savePanel->requests[0].suggestedName, QStringLiteral("statistics"));
  EXPECT_EQ(fakes.savePanel->requests[0].allowedFileType, QStringLiteral("pdf"));
  EXPECT_EQ(fakes.savePanel->requests[1].allowedFileType, QStringLiteral("csv"));
}

TEST_F(ExportTab, CancelledSheetWritesAndSaysNothing) {
  tab->tapGenerate();
  fakes.delayedCalls->advance(10s);
  EXPECT_THAT(fakes.alerts->shown, IsEmpty());
  EXPECT_EQ(fakes.delayedCalls->pendingCount(), 0U);
}

TEST_F(ExportTab, NameWithoutExtensionGetsOne) {
  fakes.savePanel->answer = folder / "stats";
  tab->tapGenerate();
  EXPECT_THAT(readFile(folder / "stats.pdf"), StartsWith("%PDF-"));
  chooseCsv();
  tab->tapGenerate();
  EXPECT_THAT(readFile(folder / "stats.csv"), StartsWith("\"Type\""));
}

TEST_F(ExportTab, AnyOtherExtensionIsKept) {
  fakes.savePanel->answer = folder / "stats.txt";
  chooseCsv();
  tab->tapGenerate();
  EXPECT_THAT(readFile(folder / "stats.txt"), StartsWith("\"Type\""));
}

TEST_F(ExportTab, ChosenKindsGoIntoTheFile) {
  fakes.savePanel->answer = folder / "stats.csv";
  chooseCsv();
  chooseNothing();
  tab->checkbox2()->setChecked(true);
  tab->checkbox3()->setChecked(true);
  tab->tapGenerate();
  const std::string text = readFile(folder / "stats.csv");
  EXPECT_THAT(text, ::testing::EndsWith("\n\"header\",\"A.h\",\"0\",\"0\",\"0\",\"0\",\"0.00\""
                                        "\n\"source\",\"b.m\",\"0\",\"0\",\"0\",\"0\",\"0.00\""));
}

TEST_F(ExportTab, ReportIsRenderedTwiceWithTheHostsChart) {
  fakes.savePanel->answer = folder / "stats.pdf";
  tab->tapGenerate();
  EXPECT_THAT(host.chart->requests, SizeIs(2));
}

TEST_F(ExportTab, SuccessIsToldAfterASecond) {
  fakes.savePanel->answer = folder / "stats.pdf";
  tab->tapGenerate();
  fakes.delayedCalls->advance(999ms);
  EXPECT_THAT(fakes.alerts->shown, IsEmpty());
  fakes.delayedCalls->advance(1ms);
  ASSERT_THAT(fakes.alerts->shown, SizeIs(1));
  EXPECT_EQ(fakes.alerts->shown[0].message, QStringLiteral("Exporting successfully finished."));
  EXPECT_EQ(fakes.alerts->shown[0].buttons, QStringList{QStringLiteral("Ok")});
}

TEST_F(ExportTab, SuccessIsToldWhateverHappened) {
  fakes.savePanel->answer = folder / "missing/stats.pdf";
  tab->tapGenerate();
  chooseCsv();
  tab->tapGenerate();
  fakes.delayedCalls->advance(1s);
  EXPECT_THAT(fakes.alerts->shown, SizeIs(2));
}

TEST_F(ExportTab, TooLittleMemoryIsToldAndTheOldFileStays) {
  folder.file("stats.pdf", "old");
  fakes.savePanel->answer = folder / "stats.pdf";
  host.chart->whilePainted = [] { throw std::bad_alloc(); };
  tab->tapGenerate();
  fakes.delayedCalls->advance(1s);
  ASSERT_THAT(fakes.alerts->shown, SizeIs(1));
  EXPECT_EQ(fakes.alerts->shown[0].message, QStringLiteral("Not enough memory to export the project."));
  EXPECT_EQ(readFile(folder / "stats.pdf"), "old");
}

TEST_F(ExportTab, FormIsThatOfTheMomentTheSheetOpened) {
  fakes.savePanel->answersAtOnce = false;
  fakes.savePanel->answer = folder / "stats";
  tab->tapGenerate();
  chooseCsv();
  fakes.savePanel->finish();
  EXPECT_THAT(readFile(folder / "stats.pdf"), StartsWith("%PDF-"));
}

TEST_F(ExportTab, ProjectReadAnewWhileTheSheetIsOpenIsTheOneWritten) {
  fakes.savePanel->answersAtOnce = false;
  fakes.savePanel->answer = folder / "stats.csv";
  chooseCsv();
  tab->tapGenerate();
  host.project = testing::projectWith({record({.name = "new.c"})});
  fakes.savePanel->finish();
  EXPECT_THAT(readFile(folder / "stats.csv"), ::testing::HasSubstr("\"new.c\""));
}

TEST_F(ExportTab, TabThatIsGoneWhenTheSheetEndsWritesNothing) {
  fakes.savePanel->answersAtOnce = false;
  fakes.savePanel->answer = folder / "stats.csv";
  tab->tapGenerate();
  tab.reset();
  fakes.savePanel->finish();
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST_F(ExportTab, TabThatIsGoneWithinTheSecondSaysNothing) {
  fakes.savePanel->answer = folder / "stats.csv";
  tab->tapGenerate();
  tab.reset();
  fakes.delayedCalls->advance(2s);
  EXPECT_THAT(fakes.alerts->shown, IsEmpty());
}

TEST_F(ExportTab, ProjectThatWasNeverReadIsExportedAsAnEmptyOne) {
  host.project = std::make_shared<ParseProject>();
  fakes.savePanel->answer = folder / "stats";
  tab->tapGenerate();
  EXPECT_THAT(readFile(folder / "stats.pdf"), StartsWith("%PDF-"));
}

TEST_F(ExportTab, ClassicRulesHaveNoSwiftBoxAndDoNotAskIt) {
  EXPECT_TRUE(tab->checkbox6()->isHidden());
  chooseNothing();
  tab->checkbox6()->setChecked(true);
  tab->tapGenerate();
  EXPECT_THAT(fakes.savePanel->requests, IsEmpty());
  EXPECT_THAT(fakes.alerts->shown, SizeIs(1));
}

class ExportTabByCurrentRules : public ExportTab {
 protected:
  ExportTabByCurrentRules() {
    host.project = testing::projectWith({record({.name = "a.swift"}), record({.name = "b.m"}),
                                         record({.name = "c.xib"}), record({.name = "d.storyboard"})},
                                        "Fixture", currentKinds());
    tab = ExportViewController::create(host, fakes.services());
  }
  std::string exported() {
    chooseCsv();
    fakes.savePanel->answer = folder / "out.csv";
    tab->tapGenerate();
    return readFile(folder / "out.csv");
  }
};

TEST_F(ExportTabByCurrentRules, SwiftHasABoxOfItsOwn) {
  EXPECT_FALSE(tab->checkbox6()->isHidden());
  EXPECT_EQ(tab->findChild<QLabel*>(QStringLiteral("lblCheckbox6Types"))->text(), QStringLiteral(".swift"));
  chooseNothing();
  tab->checkbox6()->setChecked(true);
  const std::string csv = exported();
  EXPECT_THAT(csv, ::testing::HasSubstr("a.swift"));
  EXPECT_THAT(csv, ::testing::Not(::testing::HasSubstr("b.m")));
}

TEST_F(ExportTabByCurrentRules, LongListsOfTypesBreakInsteadOfScrolling) {
  const ApplicationTheme theme;
  tab->resize(616, 400);
  tab->show();
  QCoreApplication::processEvents();
  EXPECT_EQ(tab->findChild<QScrollArea*>()->horizontalScrollBar()->maximum(), 0);
}

TEST_F(ExportTabByCurrentRules, StoryboardsGoWithTheInterfaceFiles) {
  EXPECT_EQ(tab->findChild<QLabel*>(QStringLiteral("lblCheckbox5Types"))->text(),
            QStringLiteral(".xib, .storyboard"));
  EXPECT_EQ(tab->checkbox5()->text(), QStringLiteral("Interface files"));
  chooseNothing();
  tab->checkbox6()->setChecked(false);
  tab->checkbox5()->setChecked(true);
  const std::string csv = exported();
  EXPECT_THAT(csv, ::testing::HasSubstr("c.xib"));
  EXPECT_THAT(csv, ::testing::HasSubstr("d.storyboard"));
  EXPECT_THAT(csv, ::testing::Not(::testing::HasSubstr("a.swift")));
}

TEST_F(ExportTabByCurrentRules, TicksTheBoxesOfGroups) {
  tab->setGroups({FileGroup::swift});
  EXPECT_TRUE(tab->checkbox6()->isChecked());
  EXPECT_FALSE(tab->checkbox1()->isChecked());
  tab->setGroups({FileGroup::interfaceFiles, FileGroup::storyboards});
  EXPECT_FALSE(tab->checkbox6()->isChecked());
  EXPECT_TRUE(tab->checkbox5()->isChecked());
}

}  // namespace
}  // namespace quillmeter
