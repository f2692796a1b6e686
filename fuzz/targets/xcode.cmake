quillmeter_fuzzer(quillmeter_xcode_fuzz
  SOURCES XcodeFuzzer.cpp
  LIBS quillmeter_xcode)
