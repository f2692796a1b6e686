quillmeter_fuzzer(current_read_fuzzer
  SOURCES CurrentReadFuzzer.cpp ${CMAKE_SOURCE_DIR}/tests/measuring/ReferenceMeasurement.cpp
  LIBS quillmeter_xcode)
