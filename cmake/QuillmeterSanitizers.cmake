# Sanitizers apply to everything in the build, tests included, so that no object is left uninstrumented.
if(QUILLMETER_SANITIZE)
  add_compile_options(-fsanitize=${QUILLMETER_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer -g)
  add_link_options(-fsanitize=${QUILLMETER_SANITIZE})
endif()

# What the fuzzers steer by: without it libFuzzer finds no input interesting.
if(QUILLMETER_FUZZERS)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()
