quillmeter_fuzzer(line_breaking_fuzzer
  SOURCES LineBreakingFuzzer.cpp
  LIBS quillmeter_export ICU::i18n ICU::uc)
