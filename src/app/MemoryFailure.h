#pragma once

#include <QString>

/// What becomes of the application, with windows or without, when there is no memory left to go on with.
namespace quillmeter {

/// Says so on standard error and ends the program, with exit status 3. Asks for no more memory.
[[noreturn]] void endForWantOfMemory();

/// Whether a message of the toolkit says that a thread could not be started. It paints wide areas with
/// several, and waits for ever for the part of one that never was.
[[nodiscard]] bool isLostThread(const QString& message);

}  // namespace quillmeter
