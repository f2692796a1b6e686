# The warnings every target of ours is compiled with, as an interface target that is linked privately.
add_library(quillmeter_warnings INTERFACE)
target_compile_options(quillmeter_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
  -Wnon-virtual-dtor -Woverloaded-virtual -Wdouble-promotion)
if(QUILLMETER_WERROR)
  target_compile_options(quillmeter_warnings INTERFACE -Werror)
  # When it optimises across files, the compiler warns while it links.
  target_link_options(quillmeter_warnings INTERFACE -Werror)
endif()
# GCC 12 sees an impossible size in Qt's hash when it optimises across files.
target_link_options(quillmeter_warnings INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-alloc-size-larger-than>)
