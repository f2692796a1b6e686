#include "stats/CanvasReportChart.h"

#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cstddef>
#include <new>

#include "charts/DrawingCanvasView.h"
#include "support/MemoryGuard.h"

namespace quillmeter {
namespace {

constexpr int kBytesPerPixel = 4;

/// What painting takes: five pictures of ten megabytes, at most three of them at a time, and the fonts.
constexpr std::size_t kRoom = std::size_t{64} << 20;

/// Gives what is wholly transparent the colour that the drawing's soft edges fade from. Readers that shrink
/// the picture mix the colours of neighbours, and would put a light or dark seam around everything otherwise.
void colorTransparentPixels(QImage& image, const QColor& color) {
  for (int row = 0; row < image.height(); ++row) {
    uchar* pixel = image.scanLine(row);
    for (int column = 0; column < image.width(); ++column, pixel += kBytesPerPixel) {
      if (pixel[3] != 0) continue;
      pixel[0] = static_cast<uchar>(color.red());
      pixel[1] = static_cast<uchar>(color.green());
      pixel[2] = static_cast<uchar>(color.blue());
    }
  }
}

}  // namespace

ReportPicture CanvasReportChart::picture(const ReportChartRequest& request) const {
  // The toolkit leaves out a letter that it has no memory for, and does not tell.
  if (!isThereRoomFor(kRoom)) throw std::bad_alloc();
  DrawingCanvasView canvas;
  canvas.setGraphType(graphTypeOf(ChartKind::fileKindsPie));
  canvas.setCIRCLE_RADIUS(request.circleRadius);
  canvas.setPieChart2Perc1(request.pieChart2Perc1);
  canvas.setPieChart2Perc2(request.pieChart2Perc2);

  const QSize size(request.width, request.height);
  QImage painted(size * kReportChartScale, QImage::Format_ARGB32_Premultiplied);
  if (painted.isNull()) throw std::bad_alloc();
  painted.setDevicePixelRatio(kReportChartScale);
  painted.fill(Qt::transparent);
  {
    QPainter painter(&painted);
    painter.setRenderHint(QPainter::Antialiasing);
    canvas.paintOn(painter, size);
  }
  QImage image = painted.convertToFormat(QImage::Format_RGBA8888);
  if (image.isNull()) throw std::bad_alloc();
  colorTransparentPixels(image, canvas.axisColor());

  ReportPicture picture;
  picture.width = image.width();
  picture.height = image.height();
  const auto rowBytes = static_cast<std::size_t>(image.width()) * kBytesPerPixel;
  picture.rgba.resize(rowBytes * static_cast<std::size_t>(image.height()));
  for (int row = 0; row < image.height(); ++row) {
    std::copy_n(image.constScanLine(row), rowBytes, &picture.rgba[rowBytes * static_cast<std::size_t>(row)]);
  }
  return picture;
}

}  // namespace quillmeter
