#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QRect>
#include <algorithm>
#include <array>
#include <cmath>

#include "charts/ChartPainter.h"
#include "charts/ShadowMask.h"

namespace quillmeter {
namespace {

/// Shadows are soft; finer pixels than these (as on a printer) would only cost time.
constexpr double kFinestScale = 4;

using Shades = std::array<QRgb, 256>;

/// The premultiplied pixel for each coverage.
Shades shades(double opacity) {
  Shades result;
  for (std::size_t coverage = 0; coverage < result.size(); ++coverage) {
    const int alpha = static_cast<int>(std::lround(static_cast<double>(coverage) * opacity));
    result[coverage] = qPremultiply(qRgba(kAxisColor.red, kAxisColor.green, kAxisColor.blue, alpha));
  }
  return result;
}

double pixelScale(const QPainter& painter) {
  return std::clamp(deviceScale(painter), 0.5, kFinestScale);
}

/// Puts pixels of which there are `scale` to a point at a place counted in them. On a device of that scale
/// they are copied as they are, on the calling thread; for anything else the toolkit may use several, and
/// waiting for these takes longer than the painting of a bar.
void drawPixels(QPainter& painter, QPoint place, const QImage& pixels, double scale) {
  painter.save();
  painter.setRenderHint(QPainter::SmoothPixmapTransform, !qFuzzyCompare(scale, deviceScale(painter)));
  painter.scale(1 / scale, 1 / scale);
  painter.drawImage(place, pixels);
  painter.restore();
}

/// How much of each of `count` pixels from `first` on lies in [from, to], all counted in pixels.
std::vector<float> pixelCoverage(double from, double to, int first, int count) {
  std::vector<float> coverage;
  coverage.reserve(static_cast<std::size_t>(count));
  for (int pixel = first; pixel < first + count; ++pixel) {
    const double part = std::min<double>(pixel + 1, to) - std::max<double>(pixel, from);
    coverage.push_back(static_cast<float>(std::clamp(part, 0.0, 1.0)));
  }
  return coverage;
}

QRgb covering(QRgb color, float coverage) {
  // NOLINTNEXTLINE(bugprone-incorrect-roundings): never negative
  return qPremultiply((color & RGB_MASK) | static_cast<QRgb>(coverage * 255.0F + 0.5F) << 24U);
}

QRgb mixed(ChartColor from, ChartColor to, double part) {
  const auto channel = [part](int a, int b) { return qRound(a + (b - a) * part); };
  return qRgb(channel(from.red, to.red), channel(from.green, to.green), channel(from.blue, to.blue));
}

/// A blurred rectangle on a grid of pixels that starts at the canvas's origin.
class BlurredRect {
 public:
  BlurredRect(const ChartRect& rect, const ChartShadow& shadow, double scale)
      : scale_(scale), shades_(shades(shadow.opacity)) {
    const double left = rect.x + shadow.offsetWidth;
    const double top = rect.y - shadow.offsetHeight;
    const double reach = shadowReach(shadow.blurRadius);
    area_ =
        QRect(QPoint(qFloor((left - reach) * scale), qFloor((top - reach) * scale)),
              QPoint(qCeil((left + rect.width + reach) * scale), qCeil((top + rect.height + reach) * scale)));
    const auto profile = [&](double from, double length, int first, int count) {
      return blurredInterval(from, from + length, shadow.blurRadius, (first + 0.5) / scale, 1 / scale, count);
    };
    across_ = profile(left, rect.width, area_.left(), area_.width());
    down_ = profile(top, rect.height, area_.top(), area_.height());
  }

  [[nodiscard]] QRect area() const { return area_; }

  void paint(QPainter& painter, const QRect& part) const {
    const QRect drawn = part & area_;
    if (drawn.isEmpty()) return;
    QImage image(drawn.size(), QImage::Format_ARGB32_Premultiplied);
    const float* down = down_.data() + (drawn.top() - area_.top());
    for (int y = 0; y < drawn.height(); ++y) {
      auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
      const float height = down[y] * 255.0F;
      const float* across = across_.data() + (drawn.left() - area_.left());
      for (int x = 0; x < drawn.width(); ++x) {
        // NOLINTNEXTLINE(bugprone-incorrect-roundings): never negative
        row[x] = shades_[static_cast<std::size_t>(across[x] * height + 0.5F)];
      }
    }
    drawPixels(painter, drawn.topLeft(), image, scale_);
  }

 private:
  double scale_;
  Shades shades_;
  QRect area_;
  std::vector<float> across_;
  std::vector<float> down_;
};

}  // namespace

void paintRectShadow(QPainter& painter, const ChartRect& rect, const ChartShadow& shadow) {
  const double scale = pixelScale(painter);
  const BlurredRect blurred(rect, shadow, scale);
  const QRect area = blurred.area();
  // Whole pixels that the rectangle covers need no shadow below them.
  const QRect covered(QPoint(qCeil(rect.x * scale), qCeil(rect.y * scale)),
                      QPoint(qFloor(rect.right() * scale) - 1, qFloor(rect.bottom() * scale) - 1));
  if (!covered.isValid()) {
    blurred.paint(painter, area);
    return;
  }
  const auto rows = [&](int top, int bottom) {
    return QRect(QPoint(area.left(), top), QPoint(area.right(), bottom));
  };
  blurred.paint(painter, rows(area.top(), covered.top() - 1));
  blurred.paint(painter, rows(covered.bottom() + 1, area.bottom()));
  QRect left = rows(covered.top(), covered.bottom());
  QRect right = left;
  left.setRight(covered.left() - 1);
  right.setLeft(covered.right() + 1);
  blurred.paint(painter, left);
  blurred.paint(painter, right);
}

void paintRectGradient(QPainter& painter, const ChartRect& rect, ChartColor top, ChartColor bottom) {
  const double scale = pixelScale(painter);
  const QRectF scaled(rect.x * scale, rect.y * scale, rect.width * scale, rect.height * scale);
  const QRect area = scaled.toAlignedRect();
  QImage image(area.size(), QImage::Format_ARGB32_Premultiplied);
  if (image.isNull()) return;
  const auto across = pixelCoverage(scaled.left(), scaled.right(), area.left(), area.width());
  const auto down = pixelCoverage(scaled.top(), scaled.bottom(), area.top(), area.height());
  for (int y = 0; y < area.height(); ++y) {
    const double part = (area.top() + y + 0.5 - scaled.top()) / scaled.height();
    const QRgb color = mixed(top, bottom, std::clamp(part, 0.0, 1.0));
    const float rowCoverage = down[static_cast<std::size_t>(y)];
    auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
    std::fill_n(row, area.width(), covering(color, rowCoverage));
    // Only the outermost columns can be covered in part.
    row[0] = covering(color, rowCoverage * across.front());
    row[area.width() - 1] = covering(color, rowCoverage * across.back());
  }
  drawPixels(painter, area.topLeft(), image, scale);
}

void paintPathShadow(QPainter& painter, const QPainterPath& path, const ChartShadow& shadow) {
  // The blur is several points wide, so a mask of one pixel a point loses nothing that could be seen.
  const double reach = shadowReach(shadow.blurRadius) + kThinWidth;
  const QRect area = path.boundingRect().adjusted(-reach, -reach, reach, reach).toAlignedRect();
  QImage mask(area.size(), QImage::Format_Alpha8);
  if (mask.isNull()) return;
  mask.fill(0);
  QPainter maskPainter(&mask);
  maskPainter.setRenderHint(QPainter::Antialiasing);
  maskPainter.translate(-area.topLeft());
  maskPainter.setBrush(Qt::black);
  maskPainter.setPen(QPen(Qt::black, kThinWidth));
  maskPainter.drawPath(path);
  maskPainter.end();
  blurMask({mask.bits(), static_cast<std::size_t>(mask.sizeInBytes())}, mask.width(), mask.height(),
           static_cast<int>(mask.bytesPerLine()), shadow.blurRadius);

  const Shades colors = shades(shadow.opacity);
  QImage image(area.size(), QImage::Format_ARGB32_Premultiplied);
  for (int y = 0; y < image.height(); ++y) {
    const uchar* coverage = mask.constScanLine(y);
    auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
    for (int x = 0; x < image.width(); ++x)
      row[x] = colors[coverage[x]];
  }
  painter.save();
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(QRectF(area.topLeft() + QPointF(shadow.offsetWidth, -shadow.offsetHeight), area.size()),
                    image);
  painter.restore();
}

}  // namespace quillmeter
