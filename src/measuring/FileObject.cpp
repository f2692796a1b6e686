#include "measuring/FileObject.h"

#include "support/Paths.h"
#include "support/Text.h"

namespace quillmeter {

std::optional<std::string> FileObject::getFileExtension() const {
  if (!fileName_) return std::nullopt;
  return lowerCased(textAfterLastDot(*fileName_));
}

double FileObject::kloc() const {
  return doubleValue(noLinesTotal_) / 1000.0;
}

}  // namespace quillmeter
