#pragma once

#include <QWidget>
#include <memory>
#include <utility>
#include <vector>

#include "analysis/MeasuredProject.h"
#include "tables/DetailsHost.h"

namespace quillmeter::testing {

/// What stands around the panels in the tests: a project, and a note of what the panels asked for.
class TablesHost final : public DetailsHost {
 public:
  explicit TablesHost(std::shared_ptr<const MeasuredProject> project) : project_(std::move(project)) {}
  [[nodiscard]] std::shared_ptr<const MeasuredProject> parserProject() const override { return project_; }
  void setExportGroups(const FileGroups& groups) override { exportGroups.push_back(groups); }
  void tapExportTab() override { ++exportTabTaps; }

  std::vector<FileGroups> exportGroups;
  int exportTabTaps = 0;

 private:
  std::shared_ptr<const MeasuredProject> project_;
};

/// A child by its object name; fails loudly when there is none.
template <class Widget>
Widget& child(const QWidget& parent, const char* name) {
  auto* found = parent.findChild<Widget*>(QString::fromLatin1(name));
  if (found == nullptr) qFatal("no %s", name);
  return *found;
}

}  // namespace quillmeter::testing
