#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "xcode/DiskView.h"

namespace quillmeter {

/// What a folder with a `Package.swift` holds. Other packages that it depends on are not followed.
struct PackageContents {
  /// `Package.swift` and those of its variants for single tool versions, in ascending byte order.
  std::vector<std::string> manifests;
  /// The folders of sources that exist, in ascending byte order; when there are none, the whole package is.
  std::vector<std::string> folders;
};

/// The package at `folder`; absent when that is no folder or has no `Package.swift`.
[[nodiscard]] std::optional<PackageContents> packageAt(DiskView& disk, const std::string& folder);

/// The texts between the quotes of each `path: "…"` in a manifest, in order; those with escapes are left out.
[[nodiscard]] std::vector<std::string_view> pathsInManifest(std::string_view manifest);

}  // namespace quillmeter
