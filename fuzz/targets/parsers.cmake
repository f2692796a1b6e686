quillmeter_fuzzer(quillmeter_parsers_fuzz
  SOURCES ParsersFuzzer.cpp
  LIBS quillmeter_parsers quillmeter_icu)
