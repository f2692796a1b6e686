#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "analysis/MeasuredProject.h"
#include "stats/StatsHost.h"

namespace quillmeter::testing {

/// Stands for the application below a statistics window.
class FakeStatsHost final : public StatsHost {
 public:
  explicit FakeStatsHost(std::shared_ptr<const MeasuredProject> shown) : project(std::move(shown)) {}

  [[nodiscard]] std::shared_ptr<const MeasuredProject> parserProject() const override { return project; }
  void showBackMainWindow() override {
    ++shownBack;
    if (whenShownBack) whenShownBack();
  }

  void quitApplication() override { ++quits; }

  std::shared_ptr<const MeasuredProject> project;
  int quits = 0;
  int shownBack = 0;
  std::function<void()> whenShownBack;
};

}  // namespace quillmeter::testing
