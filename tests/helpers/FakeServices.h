#pragma once

#include <QObject>
#include <QPointer>
#include <algorithm>
#include <map>
#include <utility>
#include <variant>
#include <vector>

#include "controls/Services.h"

namespace quillmeter::testing {

/// Delayed messages that wait until the test lets time pass.
class ManualDelayedCalls final : public DelayedCalls {
 public:
  void performAfterDelay(QObject* receiver, std::chrono::milliseconds delay,
                         std::function<void()> message) override {
    delays.push_back(delay);
    pending_.push_back({now_ + delay, QPointer<QObject>(receiver), std::move(message)});
  }

  /// Lets `time` pass: sends everything that falls due, in order of time, also what is scheduled meanwhile.
  void advance(std::chrono::milliseconds time) {
    const auto end = now_ + time;
    for (;;) {
      const auto next = std::min_element(pending_.begin(), pending_.end(),
                                         [](const Pending& a, const Pending& b) { return a.due < b.due; });
      if (next == pending_.end() || next->due > end) break;
      const Pending call = *next;
      pending_.erase(next);
      now_ = call.due;
      if (call.receiver != nullptr) call.message();
    }
    now_ = end;
  }

  [[nodiscard]] std::size_t pendingCount() const { return pending_.size(); }

  /// Every delay ever asked for, in order.
  std::vector<std::chrono::milliseconds> delays;

 private:
  struct Pending {
    std::chrono::milliseconds due;
    QPointer<QObject> receiver;
    std::function<void()> message;
  };
  std::chrono::milliseconds now_{0};
  std::vector<Pending> pending_;
};

/// Answers alerts from a list; an alert beyond the list counts as dismissed.
class ScriptedAlerts final : public Alerts {
 public:
  std::optional<int> runModal(QWidget* parent, const QString& message,
                              const QStringList& buttons) override {
    shown.push_back({message, buttons, parent});
    if (whileShown) whileShown();
    if (answers.empty()) return std::nullopt;
    const std::optional<int> answer = answers.front();
    answers.erase(answers.begin());
    return answer;
  }

  struct Shown {
    QString message;
    QStringList buttons;
    QWidget* parent;
  };
  std::vector<std::optional<int>> answers;
  std::vector<Shown> shown;
  std::function<void()> whileShown;  ///< runs while an alert is up
};

/// Answers the save dialog at once with `answer`, or keeps the sheet open until `finish` when `answersAtOnce`
/// is off.
class ScriptedSavePanel final : public SavePanel {
 public:
  void beginSheet(QWidget* /*window*/, const SavePanelRequest& request,
                  std::function<void(std::optional<std::string>)> completion) override {
    requests.push_back(request);
    completion_ = std::move(completion);
    if (answersAtOnce) finish();
  }
  void finish() {
    if (completion_) std::exchange(completion_, nullptr)(answer);
  }

  std::optional<std::string> answer;
  bool answersAtOnce = true;
  std::vector<SavePanelRequest> requests;

 private:
  std::function<void(std::optional<std::string>)> completion_;
};

class RecordingFileBrowser final : public FileBrowser {
 public:
  void reveal(const std::string& path) override { revealed.push_back(path); }
  std::vector<std::string> revealed;
};

class RecordingUrlOpener final : public UrlOpener {
 public:
  void open(const QUrl& url) override { opened.push_back(url); }
  std::vector<QUrl> opened;
};

/// User defaults in memory.
class MemoryUserDefaults final : public UserDefaults {
 public:
  [[nodiscard]] std::optional<bool> boolForKey(const std::string& key) const override {
    return value<bool>(key);
  }
  [[nodiscard]] std::optional<std::int64_t> integerForKey(const std::string& key) const override {
    return value<std::int64_t>(key);
  }
  void setBool(const std::string& key, bool value) override { values[key] = value; }
  void setInteger(const std::string& key, std::int64_t value) override { values[key] = value; }
  void synchronize() override { ++synchronized; }

  std::map<std::string, std::variant<bool, std::int64_t>> values;
  int synchronized = 0;

 private:
  template <class Type>
  [[nodiscard]] std::optional<Type> value(const std::string& key) const {
    const auto found = values.find(key);
    const auto* stored = found == values.end() ? nullptr : std::get_if<Type>(&found->second);
    return stored == nullptr ? std::nullopt : std::optional<Type>(*stored);
  }
};

/// A set of fakes and the `Services` made of them.
struct FakeServices {
  std::shared_ptr<ManualDelayedCalls> delayedCalls = std::make_shared<ManualDelayedCalls>();
  std::shared_ptr<ScriptedAlerts> alerts = std::make_shared<ScriptedAlerts>();
  std::shared_ptr<ScriptedSavePanel> savePanel = std::make_shared<ScriptedSavePanel>();
  std::shared_ptr<RecordingFileBrowser> fileBrowser = std::make_shared<RecordingFileBrowser>();
  std::shared_ptr<RecordingUrlOpener> urlOpener = std::make_shared<RecordingUrlOpener>();
  std::shared_ptr<MemoryUserDefaults> userDefaults = std::make_shared<MemoryUserDefaults>();

  [[nodiscard]] Services services() const {
    return {delayedCalls, alerts, savePanel, fileBrowser, urlOpener, userDefaults};
  }
};

}  // namespace quillmeter::testing
