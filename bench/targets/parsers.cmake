quillmeter_benchmark(quillmeter_parsers_bench
  SOURCES ParsersBenchmark.cpp
  LIBS quillmeter_parsers)
