#pragma once

#include <cstddef>

namespace quillmeter {

/// Has `end` called, on the thread that asked, when memory runs out: for operator new and for the Unicode
/// library, which has an allocator of its own and takes a refusal badly (figures in another language, a lock
/// that is never given back). `end` must not return, nor ask for memory. To be called once, before anything
/// else of the program runs.
void endWhenMemoryRunsOut(void (*end)());

/// The same for the Unicode library alone, and for what this thread asks of it; other threads are refused as
/// ever. For a program with windows, which goes on where it can. To be called before that library is used.
void endWhenUnicodeLibraryLacksMemory(void (*end)());

/// malloc(3) for a library that takes a refusal badly: ends the program as it was told to above. Null when it
/// was not.
[[nodiscard]] void* memoryOrEnd(std::size_t size);

/// Whether this process could have `size` more bytes of memory now. They are given back at once.
[[nodiscard]] bool isThereRoomFor(std::size_t size);

}  // namespace quillmeter
