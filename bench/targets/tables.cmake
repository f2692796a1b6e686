# The details table and the clean-up tool.
quillmeter_benchmark(tables_bench SOURCES TablesBench.cpp LIBS quillmeter_stats)
if(QUILLMETER_APPLICATION)
  add_executable(tables_view_bench TablesViewBench.cpp)
  target_include_directories(tables_view_bench PRIVATE ${CMAKE_SOURCE_DIR}/src ${CMAKE_SOURCE_DIR}/tests)
  target_link_libraries(tables_view_bench PRIVATE quillmeter_stats_ui benchmark::benchmark quillmeter_warnings)
  quillmeter_use_qt(tables_view_bench)
endif()
