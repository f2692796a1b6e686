#pragma once

namespace quillmeter {

/// Has `end` called, on the thread that asked, when memory runs out: for operator new and for the Unicode
/// library, which has an allocator of its own and takes a refusal badly (figures in another language, a lock
/// that is never given back). `end` must not return, nor ask for memory. To be called once, before anything
/// else of the program runs.
void endWhenMemoryRunsOut(void (*end)());

}  // namespace quillmeter
