#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

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

  [[nodiscard]] std::string rulesOffer() const override { return offer; }
  void measureBy(ProjectRules rules) override { measuredBy.push_back(rules); }
  void quitApplication() override { ++quits; }

  std::shared_ptr<const MeasuredProject> project;
  std::string offer;
  std::vector<ProjectRules> measuredBy;
  int quits = 0;
  int shownBack = 0;
  std::function<void()> whenShownBack;
};

}  // namespace quillmeter::testing
