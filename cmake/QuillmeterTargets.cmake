# How this project declares libraries and tests, so that each folder's CMakeLists.txt only lists what is its own.

# quillmeter_library(NAME SOURCES a.cpp … [PUBLIC lib …] [PRIVATE lib …])
# A plain library: C++20, no Qt.
function(quillmeter_library name)
  quillmeter_declare_library(${name} ${ARGN})
  if(QUILLMETER_SANITIZE)
    # What the tests keep busy. To optimise the widgets and the tests themselves takes longer than it saves.
    target_compile_options(${name} PRIVATE -O1)
  endif()
endfunction()

# quillmeter_ui_library(NAME SOURCES a.cpp … [PUBLIC lib …] [PRIVATE lib …])
# A library of windows and widgets on Qt 6. Interface files are found in src/resources.
function(quillmeter_ui_library name)
  quillmeter_declare_library(${name} ${ARGN})
  quillmeter_use_qt(${name})
endfunction()

function(quillmeter_declare_library name)
  cmake_parse_arguments(arg "" "" "SOURCES;PUBLIC;PRIVATE" ${ARGN})
  add_library(${name} STATIC ${arg_SOURCES})
  target_include_directories(${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC ${arg_PUBLIC} PRIVATE ${arg_PRIVATE} quillmeter_warnings)
endfunction()

function(quillmeter_use_qt name)
  set_target_properties(${name} PROPERTIES AUTOMOC ON AUTOUIC ON AUTOUIC_SEARCH_PATHS ${CMAKE_SOURCE_DIR}/src/resources)
  target_compile_definitions(${name} PRIVATE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS)
  target_link_libraries(${name} PUBLIC Qt6::Widgets)
  quillmeter_use_toolkits_data_in_place(${name})
endfunction()

# Of a test program. The sources of src/ stay apart but under sanitizers, so that each is seen to include what it uses.
function(quillmeter_may_join name)
  if(QUILLMETER_JOIN_TESTS)
    set_target_properties(${name} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 0)
  endif()
endfunction()

# quillmeter_test(NAME LABELS core|cli|ui|slow|threads … SOURCES a_test.cpp … LIBS lib … [QT] [ARGUMENTS …])
# One test program a folder; each is one ctest entry. The thread sanitizer is run over those labelled "threads".
function(quillmeter_test name)
  cmake_parse_arguments(arg "QT" "TIMEOUT" "SOURCES;LIBS;LABELS" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/src ${CMAKE_SOURCE_DIR}/tests)
  target_compile_definitions(${name} PRIVATE QUILLMETER_TEST_DATA="${CMAKE_SOURCE_DIR}/tests/data"
    QUILLMETER_SOURCE_DIR="${CMAKE_SOURCE_DIR}" QUILLMETER_BINARY_DIR="${CMAKE_BINARY_DIR}")
  target_link_libraries(${name} PRIVATE ${arg_LIBS} GTest::gmock quillmeter_warnings)
  quillmeter_may_join(${name})
  if(arg_QT)
    quillmeter_use_qt(${name})
    target_link_libraries(${name} PRIVATE Qt6::Test quillmeter_test_qt_main)
  else()
    target_link_libraries(${name} PRIVATE GTest::gtest_main)
  endif()
  if(NOT arg_TIMEOUT)
    # A test that hangs is to tell so soon. The longest takes ten seconds, but for the slow ones and with a sanitizer.
    set(arg_TIMEOUT 240)
    if("slow" IN_LIST arg_LABELS OR QUILLMETER_SANITIZE)
      set(arg_TIMEOUT 600)
    endif()
  endif()
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES LABELS "${arg_LABELS}" TIMEOUT ${arg_TIMEOUT})
  if("slow" IN_LIST arg_LABELS)
    # Begun first, so that not one of them is waited for alone at the end.
    set_tests_properties(${name} PROPERTIES COST 100)
  endif()
  if(arg_QT)
    # The toolkit and the font library keep what they allocate for the life of the process.
    set_tests_properties(${name} PROPERTIES ENVIRONMENT
      "QT_QPA_PLATFORM=offscreen;ASAN_OPTIONS=detect_leaks=0;TSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/tests/tsan.supp")
  endif()
  if("threads" IN_LIST arg_LABELS)
    add_dependencies(quillmeter_thread_tests ${name})
  endif()
endfunction()
