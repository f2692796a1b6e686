quillmeter_fuzzer(text_measurement_fuzzer
  SOURCES TextMeasurementFuzzer.cpp ${CMAKE_SOURCE_DIR}/tests/measuring/ReferenceMeasurement.cpp
  LIBS quillmeter_measuring)
