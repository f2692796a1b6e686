find_package(nlohmann_json REQUIRED)

quillmeter_fuzzer(outputs_fuzzer
  SOURCES OutputsFuzzer.cpp
  LIBS quillmeter_cli nlohmann_json::nlohmann_json)
