# AddressSanitizer and UndefinedBehaviorSanitizer for the whole build: the test build runs with
# both, and any undefined behaviour stops the program instead of printing and going on.
if(QUILLOGRAPH_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

# A fuzzing build instruments every library for coverage, so that libFuzzer sees into the code
# under test and not only into the target's own function.
if(QUILLOGRAPH_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
