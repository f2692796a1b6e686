if(QUILLMETER_APPLICATION)
  quillmeter_benchmark(charts_bench SOURCES ChartsBench.cpp LIBS quillmeter_charts_ui)
  quillmeter_use_qt(charts_bench)
endif()
