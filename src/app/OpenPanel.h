#pragma once

#include <optional>
#include <string>

class QWidget;

namespace quillmeter {

/// The panel in which the user picks a folder to open.
class OpenPanel {
 public:
  virtual ~OpenPanel() = default;
  /// Blocks until the user has chosen a folder; files cannot be chosen. Starts in `folder` while that is
  /// there, else where the desktop has such panels start. Gives the path in the file system's bytes, or
  /// nothing when the user cancelled.
  [[nodiscard]] virtual std::optional<std::string> runModal(QWidget* parent, const std::string& folder) = 0;
};

/// The desktop's own folder dialog, or the toolkit's where the desktop has none.
class QtOpenPanel final : public OpenPanel {
 public:
  [[nodiscard]] std::optional<std::string> runModal(QWidget* parent, const std::string& folder) override;
};

}  // namespace quillmeter
