# The fixtures check themselves with it.
find_package(GTest REQUIRED)
quillmeter_benchmark(export_bench SOURCES ExportBench.cpp LIBS quillmeter_export GTest::gtest)
