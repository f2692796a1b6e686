#include "files/WaitGauge.h"

#include <sys/resource.h>

namespace quillmeter {

void WaitGauge::restart() {
  begin_ = Clock::now();
  beginUsage_ = usage();
  tasks_ = 0;
}

bool WaitGauge::findsWaiting() {
  constexpr auto stretch = std::chrono::microseconds(500);
  ++tasks_;
  const auto end = Clock::now();
  const auto time = end - begin_;
  if (time < stretch) return false;
  const Usage now = usage();
  const bool slept = (now.sleeps - beginUsage_.sleeps) * 2 >= tasks_;
  const bool idled = (now.worked - beginUsage_.worked) * 2 < time;
  begin_ = end;
  beginUsage_ = now;
  tasks_ = 0;
  return slept && idled;
}

WaitGauge::Usage WaitGauge::usage() {
  struct rusage usage {};
  ::getrusage(RUSAGE_THREAD, &usage);
  const auto time = [](const timeval& value) {
    return std::chrono::seconds(value.tv_sec) + std::chrono::microseconds(value.tv_usec);
  };
  return {time(usage.ru_utime) + time(usage.ru_stime), usage.ru_nvcsw};
}

}  // namespace quillmeter
