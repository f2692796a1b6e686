quillmeter_fuzzer(text_measurement_fuzzer
  SOURCES TextMeasurementFuzzer.cpp ${CMAKE_SOURCE_DIR}/tests/analysis/ReferenceMeasurement.cpp
  LIBS quillmeter_analysis)
