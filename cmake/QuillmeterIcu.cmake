# ICU, shared or static by the program that is linked: an executable with the property QUILLMETER_STATIC_ICU takes the
# static archives where they are installed. The command-line tool does, because loading and relocating the shared
# libraries costs more than its whole start; the application must not, because Qt brings the shared ones along.
find_package(ICU 72 REQUIRED COMPONENTS uc i18n data)

set(static_icu)
foreach(component i18n uc data)
  find_library(QUILLMETER_ICU_${component}_ARCHIVE libicu${component}.a)
  if(QUILLMETER_ICU_${component}_ARCHIVE)
    list(APPEND static_icu ${QUILLMETER_ICU_${component}_ARCHIVE})
  endif()
endforeach()
list(LENGTH static_icu found)
set(shared_icu ICU::i18n ICU::uc)
if(NOT found EQUAL 3)
  set(static_icu ${shared_icu})
endif()

add_library(quillmeter_icu INTERFACE)
target_link_libraries(quillmeter_icu INTERFACE
  "$<IF:$<BOOL:$<TARGET_PROPERTY:QUILLMETER_STATIC_ICU>>,${static_icu},${shared_icu}>" ${CMAKE_DL_LIBS})
