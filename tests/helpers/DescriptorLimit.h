#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <filesystem>

namespace quillmeter::testing {

inline std::size_t openDescriptors() {
  std::size_t count = 0;
  for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator("/proc/self/fd"))
    ++count;
  return count - 1;  // the listing's own
}

/// Lets this process open `more` files beyond those that are open, whatever their numbers are, for the life
/// of the object.
class DescriptorLimit {
 public:
  explicit DescriptorLimit(std::size_t more) {
    EXPECT_EQ(::getrlimit(RLIMIT_NOFILE, &before_), 0);
    rlim_t numbers = 0;
    for (std::size_t left = more; left > 0; ++numbers)
      if (::fcntl(static_cast<int>(numbers), F_GETFD) < 0) --left;
    const rlimit limit{numbers, before_.rlim_max};
    EXPECT_EQ(::setrlimit(RLIMIT_NOFILE, &limit), 0);
  }
  ~DescriptorLimit() { EXPECT_EQ(::setrlimit(RLIMIT_NOFILE, &before_), 0); }
  DescriptorLimit(const DescriptorLimit&) = delete;
  DescriptorLimit& operator=(const DescriptorLimit&) = delete;

 private:
  rlimit before_{};
};

}  // namespace quillmeter::testing
