if(QUILLMETER_APPLICATION)
  quillmeter_benchmark(quillmeter_charts_benchmark SOURCES ChartsBench.cpp LIBS quillmeter_charts_ui)
  quillmeter_use_qt(quillmeter_charts_benchmark)
endif()
