quillmeter_fuzzer(compare_fuzzer
  SOURCES CompareFuzzer.cpp
  LIBS quillmeter_compare)
