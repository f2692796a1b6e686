if(QUILLMETER_APPLICATION)
  quillmeter_benchmark(stats_window_benchmark SOURCES StatsWindowBenchmark.cpp LIBS quillmeter_stats_ui GTest::gtest)
  quillmeter_use_qt(stats_window_benchmark)
endif()
