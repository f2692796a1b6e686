# The application's own benchmarks need windows, so they are programs of their own; bench/app.sh runs them on a display.
if(QUILLMETER_APPLICATION)
  find_package(GTest REQUIRED)  # the fixtures on disk
  add_executable(quillmeter_bare_window_start ${CMAKE_CURRENT_SOURCE_DIR}/BareWindowStart.cpp)
  quillmeter_use_qt(quillmeter_bare_window_start)
  target_link_libraries(quillmeter_bare_window_start PRIVATE quillmeter_warnings)

  foreach(name IN ITEMS MainScreenStart Responsiveness)
    string(REGEX REPLACE "([a-z])([A-Z])" "\\1_\\2" target ${name})
    string(TOLOWER quillmeter_${target} target)
    add_executable(${target} ${CMAKE_CURRENT_SOURCE_DIR}/${name}.cpp)
    target_include_directories(${target} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
    quillmeter_use_qt(${target})
    target_link_libraries(${target} PRIVATE quillmeter_app_ui GTest::gtest quillmeter_warnings)
  endforeach()
endif()
