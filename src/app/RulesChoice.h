#pragma once

#include <memory>
#include <optional>
#include <utility>

#include "analysis/ProjectRules.h"
#include "controls/Services.h"

namespace quillmeter {

/// The rules that the next project is read by: those the user chose last, which are remembered, or others
/// that this run was started with, until the user chooses.
class RulesChoice {
 public:
  explicit RulesChoice(std::shared_ptr<UserDefaults> userDefaults) : userDefaults_(std::move(userDefaults)) {}

  [[nodiscard]] ProjectRules rules() const;
  /// Takes `rules` for this run, without remembering them.
  void startWith(ProjectRules rules) { startedWith_ = rules; }
  /// The user's own choice, remembered.
  void choose(ProjectRules rules);

 private:
  std::shared_ptr<UserDefaults> userDefaults_;
  std::optional<ProjectRules> startedWith_;
};

}  // namespace quillmeter
