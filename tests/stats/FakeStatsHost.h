#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "analysis/ParseProject.h"
#include "stats/StatsHost.h"

namespace quillmeter::testing {

/// Stands for the application below a statistics window.
class FakeStatsHost final : public StatsHost {
 public:
  explicit FakeStatsHost(std::shared_ptr<const ParseProject> shown) : project(std::move(shown)) {}

  [[nodiscard]] std::shared_ptr<const ParseProject> parserProject() const override { return project; }
  void showBackMainWindow() override {
    ++shownBack;
    if (whenShownBack) whenShownBack();
  }

  std::shared_ptr<const ParseProject> project;
  int shownBack = 0;
  std::function<void()> whenShownBack;
};

}  // namespace quillmeter::testing
