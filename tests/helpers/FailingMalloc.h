#pragma once

namespace quillmeter::testing {

/// Which requests for memory a program that is linked with `FailingMalloc.cpp` is refused.
enum class Refusal {
  one,       ///< a single one
  andLater,  ///< that one and all that come after it
};

/// Refuses the request that comes after `granted` others, counted from now on in the whole process. The C
/// library and everything above it, operator new among them, ask for memory the way that is counted here.
void refuseMemoryAfter(long granted, Refusal refusal);

/// The same for the requests of the calling thread alone.
void refuseMemoryOfThisThreadAfter(long granted, Refusal refusal);

/// The requests since then.
[[nodiscard]] long memoryRequests();

/// Whether a request has been refused.
[[nodiscard]] bool wasMemoryRefused();

}  // namespace quillmeter::testing
