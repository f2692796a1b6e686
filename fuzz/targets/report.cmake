quillmeter_fuzzer(report_fuzzer
  SOURCES ReportFuzzer.cpp
  LIBS quillmeter_export quillmeter_xcode)
