quillmeter_fuzzer(quillmeter_parsers_fuzz
  SOURCES ParsersFuzzer.cpp
  LIBS quillmeter_parsers ICU::i18n ICU::uc)
