# Not a Google Benchmark: it measures single long runs and their memory.
add_executable(quillmeter_xcode_benchmark XcodeBench.cpp)
target_link_libraries(quillmeter_xcode_benchmark PRIVATE quillmeter_xcode quillmeter_warnings)
