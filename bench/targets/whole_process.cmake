# What bench/whole-process compares the tool with.
add_executable(quillmeter_floor Floor.cpp)
target_link_libraries(quillmeter_floor PRIVATE quillmeter_warnings)
