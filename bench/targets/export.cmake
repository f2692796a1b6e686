# The fixtures check themselves with it.
find_package(GTest REQUIRED)
quillmeter_benchmark(quillmeter_export_benchmark SOURCES ExportBench.cpp LIBS quillmeter_export GTest::gtest)
