#include "export/PdfContext.h"

#include <gtest/gtest.h>

namespace quillmeter {
namespace {

const PdfInformation kInformation{"title", "creator", "author", "subject", "en"};
const PdfPageProperties kPage{{0, 0, 200, 100}};

void drawEverything(PdfContext& context) {
  context.saveState();
  context.setFillColor({1, 0, 0, 1});
  context.setStrokeColor({0, 0, 1, 0.5});
  context.setLineWidth(2);
  context.fillRect({1, 2, 3, 4});
  context.strokeRect({1, 2, 3, 4});
  context.strokeLine({0, 0}, {5, 5});
  context.selectFont("Helvetica", 12);
  context.showTextAtPoint("text", {10, 10});
  context.drawPicture({1, 1, {255, 0, 0, 128}}, {0, 0, 10, 10});
  context.addLink("https://quillmeter.example/", {0, 0, 10, 10});
  context.restoreState();
}

TEST(PdfContext, DrawsOnAPage) {
  PdfContext context(kInformation);
  context.beginPage(kPage);
  drawEverything(context);
  context.endPage();
  const auto document = context.document();
  ASSERT_TRUE(document.has_value());
  EXPECT_TRUE(document->starts_with("%PDF-"));
}

TEST(PdfContext, DrawingOutsideAPageDoesNothing) {
  PdfContext context(kInformation);
  drawEverything(context);
  context.beginPage(kPage);
  context.endPage();
  drawEverything(context);
}

TEST(PdfContext, UnknownFontSpoilsTheDocumentAndNothingElse) {
  PdfContext context(kInformation);
  context.beginPage(kPage);
  context.selectFont("No Such Font", 12);
  context.showTextAtPoint("text", {10, 10});
  drawEverything(context);
  context.endPage();
  context.beginPage(kPage);
  drawEverything(context);
  EXPECT_EQ(context.document(), std::nullopt);
}

TEST(PdfContext, PictureWhoseBytesDoNotFitItsSizeIsLeftOut) {
  PdfContext context(kInformation);
  context.beginPage(kPage);
  context.drawPicture({2, 2, {255, 0, 0, 128}}, {0, 0, 10, 10});
  context.drawPicture({}, {0, 0, 10, 10});
  context.drawPicture({-1, 1, {}}, {0, 0, 10, 10});
  const auto document = context.document();
  ASSERT_TRUE(document.has_value());
  EXPECT_EQ(document->find("/XObject"), std::string::npos);
}

TEST(PdfContext, CoordinatesFarOutsideThePageAreSound) {
  PdfContext context(kInformation);
  context.beginPage(kPage);
  context.selectFont("Helvetica", 12);
  context.showTextAtPoint("text", {-2147483648.0, 2147483647.0});
  EXPECT_TRUE(context.document().has_value());
}

}  // namespace
}  // namespace quillmeter
