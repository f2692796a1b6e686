quillmeter_benchmark(quillmeter_parsers_benchmark
  SOURCES ParsersBenchmark.cpp
  LIBS quillmeter_parsers)
