#include "app/RulesChoice.h"

#include <string>

namespace quillmeter {
namespace {

const std::string& measureByCurrentRulesKey() {
  static const std::string key = "MEASURE_BY_CURRENT_RULES";
  return key;
}

}  // namespace

ProjectRules RulesChoice::rules() const {
  if (startedWith_) return *startedWith_;
  const bool current = userDefaults_->boolForKey(measureByCurrentRulesKey()).value_or(false);
  return current ? ProjectRules::current : ProjectRules::classic;
}

void RulesChoice::choose(ProjectRules rules) {
  startedWith_.reset();
  userDefaults_->setBool(measureByCurrentRulesKey(), rules == ProjectRules::current);
  userDefaults_->synchronize();
}

}  // namespace quillmeter
