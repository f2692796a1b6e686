# The details table and the clean-up tool.
quillmeter_benchmark(quillmeter_tables_benchmark SOURCES TablesBench.cpp LIBS quillmeter_tables)
if(QUILLMETER_APPLICATION)
  add_executable(quillmeter_tables_view_benchmark TablesViewBench.cpp)
  target_include_directories(quillmeter_tables_view_benchmark PRIVATE ${CMAKE_SOURCE_DIR}/src ${CMAKE_SOURCE_DIR}/tests)
  target_link_libraries(quillmeter_tables_view_benchmark PRIVATE quillmeter_tables_ui benchmark::benchmark quillmeter_warnings)
  quillmeter_use_qt(quillmeter_tables_view_benchmark)
endif()
