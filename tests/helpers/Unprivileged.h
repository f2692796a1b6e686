#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

namespace quillmeter::testing {

/// Gives up the superuser's right to read everything for the life of the object, so that permissions mean
/// something also where tests run as root. Folders made before must be open to others as far as the test
/// needs them.
class Unprivileged {
 public:
  Unprivileged() : wasRoot_(::geteuid() == 0) {
    if (!wasRoot_) return;
    EXPECT_EQ(::setegid(kNobody), 0);
    EXPECT_EQ(::seteuid(kNobody), 0);
  }
  ~Unprivileged() {
    if (!wasRoot_) return;
    EXPECT_EQ(::seteuid(0), 0);
    EXPECT_EQ(::setegid(0), 0);
  }
  Unprivileged(const Unprivileged&) = delete;
  Unprivileged& operator=(const Unprivileged&) = delete;

 private:
  static constexpr unsigned kNobody = 65534;
  bool wasRoot_;
};

}  // namespace quillmeter::testing
