quillmeter_fuzzer(classic_read_fuzzer
  SOURCES ClassicReadFuzzer.cpp ${CMAKE_SOURCE_DIR}/tests/measuring/ReferenceMeasurement.cpp
  LIBS quillmeter_analysis)
