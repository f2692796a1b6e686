# What makes a release harder to abuse, should one of its faults be found by somebody with bad intentions. The libraries
# of a release and of everything made like one take it on (QUILLMETER_HARDENING); tests build a probe with it.
include(CheckCXXCompilerFlag)
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)

add_library(quillmeter_hardening INTERFACE)
target_compile_options(quillmeter_hardening INTERFACE -fstack-protector-strong -fPIE)
foreach(flag -fstack-clash-protection -fcf-protection=full)
  string(MAKE_C_IDENTIFIER "QUILLMETER_HAS${flag}" known)
  check_cxx_compiler_flag(${flag} ${known})
  if(${known})
    target_compile_options(quillmeter_hardening INTERFACE ${flag})
  endif()
endforeach()
# Needs optimisation; compilers before GCC 12 take level 3 for the highest they have.
target_compile_options(quillmeter_hardening INTERFACE -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3)
target_compile_definitions(quillmeter_hardening INTERFACE _GLIBCXX_ASSERTIONS)
target_link_options(quillmeter_hardening INTERFACE -pie -Wl,-z,relro -Wl,-z,now -Wl,-z,noexecstack)

# quillmeter_check_hardening(PROGRAM): a release whose program lacks any of it is not built.
function(quillmeter_check_hardening program)
  if(QUILLMETER_HARDENED)
    find_package(Python3 REQUIRED COMPONENTS Interpreter)
    add_custom_command(TARGET ${program} POST_BUILD VERBATIM
      COMMAND Python3::Interpreter ${CMAKE_SOURCE_DIR}/cmake/check_hardening.py $<TARGET_FILE:${program}>)
  endif()
endfunction()

# quillmeter_use_toolkits_data_in_place(TARGET): link-time optimisation makes position-independent programs (-fPIE) of
# objects for libraries (-fPIC), and such a program takes copies of the toolkit's data, which the toolkit does not know
# of: it crashes at its start. This has it look the data up instead, for TARGET and all that is linked with it; it is at
# the link that the code is made.
check_cxx_compiler_flag(-mno-direct-extern-access QUILLMETER_HAS_mno_direct_extern_access)
function(quillmeter_use_toolkits_data_in_place target)
  if(QUILLMETER_HAS_mno_direct_extern_access AND CMAKE_INTERPROCEDURAL_OPTIMIZATION)
    target_link_options(${target} PUBLIC -mno-direct-extern-access)
  endif()
endfunction()

set(QUILLMETER_HARDENED OFF)
if(CMAKE_BUILD_TYPE STREQUAL "Release" AND NOT QUILLMETER_SANITIZE)
  set(QUILLMETER_HARDENED ON)
  # Everything in the build, as with the sanitizers: an object that is left out is a hole.
  get_target_property(options quillmeter_hardening INTERFACE_COMPILE_OPTIONS)
  get_target_property(link_options quillmeter_hardening INTERFACE_LINK_OPTIONS)
  add_compile_options(${options})
  add_compile_definitions(_GLIBCXX_ASSERTIONS)
  list(REMOVE_ITEM link_options -pie)
  add_link_options("$<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:-pie>" ${link_options})
endif()
