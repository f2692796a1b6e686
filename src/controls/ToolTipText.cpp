#include "controls/ToolTipText.h"

#include <QStringList>
#include <QTextDocument>

namespace quillmeter {

QString toolTipText(const QString& text, qsizetype lineLength) {
  QStringList lines;
  for (const QString& line : text.split(QLatin1Char('\n'))) {
    for (qsizetype at = 0; at < line.size(); at += lineLength)
      lines += line.mid(at, lineLength);
  }
  return Qt::convertFromPlainText(lines.join(QLatin1Char('\n')), Qt::WhiteSpacePre);
}

}  // namespace quillmeter
