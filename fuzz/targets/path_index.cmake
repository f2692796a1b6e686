quillmeter_fuzzer(path_index_fuzzer
  SOURCES PathIndexFuzzer.cpp
  LIBS quillmeter_analysis)
