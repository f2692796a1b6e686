#include "charts/ChartAdvice.h"

#include "charts/ChartKind.h"
#include "charts/Ratio.h"
#include "support/NumberFormat.h"

namespace quillmeter {
namespace {

constexpr double kTooLittle = 0.4;
constexpr double kTooMuch = 2.0;

/// A ratio that is not a number fails every comparison and so gets no advice.
std::optional<std::string> codeAdvice(double share) {
  if (share < kTooLittle) return "too little code/responsability; try adding more";
  if (share <= kTooMuch) return "code level is in\nnormal range";
  if (share > kTooMuch) return "too much code/responsability; try distributing it to other classes";
  return std::nullopt;
}

std::optional<std::string> sizeAdvice(double share, ChartKind kind) {
  if (share <= kTooMuch) return "size level is in\nnormal range";
  if (!(share > kTooMuch)) return std::nullopt;
  return kind == ChartKind::xibFilesBars ? "size level is above average; try optimizing the XIB file"
                                         : "size level is above average; try optimizing the image";
}

}  // namespace

std::string barValueText(ChartKind kind, const FileObject& file) {
  return measuresLines(kind) ? std::to_string(integerValue(file.noLinesTotal())) + " lines"
                             : sizeInKilobytes(static_cast<double>(integerValue(file.fileSize())));
}

std::optional<ChartAdvice> chartAdvice(ChartKind kind, const FileObject& file, double average) {
  if (!isBarChart(kind)) return std::nullopt;
  ChartAdvice advice;
  advice.fileName = file.fileName().value_or(std::string());
  // What is shown is judged: of a value that is still growing the whole lines or bytes.
  const double share = ratio(static_cast<double>(integerValue(barMeasure(kind, file))), average);
  if (measuresLines(kind)) {
    advice.value = "LOC: " + barValueText(kind, file);
    advice.average = "Average: " + fixed(average, 1) + " lines";
    advice.advice = codeAdvice(share);
  } else {
    advice.value = "File size: " + barValueText(kind, file);
    advice.average = "Average: " + sizeInKilobytes(average);
    advice.advice = sizeAdvice(share, kind);
  }
  return advice;
}

}  // namespace quillmeter
