#pragma once

#include <memory>

namespace quillmeter {

class MeasuredProject;

/// What every page needs from whoever holds it: the project to show. Main thread only; outlives the page.
class ProjectHost {
 public:
  virtual ~ProjectHost() = default;
  /// The project shown; never null while a page is open.
  [[nodiscard]] virtual std::shared_ptr<const MeasuredProject> parserProject() const = 0;
};

}  // namespace quillmeter
