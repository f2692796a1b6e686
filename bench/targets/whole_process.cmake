# What bench/whole-process compares the tool with.
add_executable(quillmeter_floor Floor.cpp)
target_link_libraries(quillmeter_floor PRIVATE Threads::Threads quillmeter_warnings)

# The slow disk that it is put on.
add_library(quillmeter_slow_disk MODULE SlowDisk.c)
target_link_libraries(quillmeter_slow_disk PRIVATE ${CMAKE_DL_LIBS})
set_target_properties(quillmeter_slow_disk PROPERTIES LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin PREFIX "")
