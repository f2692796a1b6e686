#include <dlfcn.h>
#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

// Preloaded into the tool: as soon as the tool writes its first output, tries what the tool has no business
// with, and says on standard error what it succeeded in.
namespace {

void tell(const std::string& what) {
  static const auto next =
      reinterpret_cast<ssize_t (*)(int, const void*, size_t)>(::dlsym(RTLD_NEXT, "write"));
  next(STDERR_FILENO, what.data(), what.size());
}

void tryForbidden() {
  const std::string target = ::getenv("QUILLMETER_FORBIDDEN_FILE");
  tell(::open(target.c_str(), O_WRONLY | O_CREAT, 0600) >= 0 ? "[wrote]" : "[cannot write]");
  tell(::socket(AF_INET, SOCK_STREAM, 0) >= 0 ? "[connected]" : "[cannot connect]");
  tell(::open("/etc/passwd", O_RDONLY) >= 0 ? "[read]" : "[cannot read]");
}

}  // namespace

extern "C" ssize_t write(int descriptor, const void* bytes, size_t size) {
  static const auto next =
      reinterpret_cast<ssize_t (*)(int, const void*, size_t)>(::dlsym(RTLD_NEXT, "write"));
  static bool tried = false;
  if (!tried && ::getenv("QUILLMETER_FORBIDDEN_FILE") != nullptr && descriptor != STDERR_FILENO) {
    tried = true;
    tryForbidden();
  }
  return next(descriptor, bytes, size);
}
