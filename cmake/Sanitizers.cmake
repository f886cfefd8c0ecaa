# AddressSanitizer and UndefinedBehaviorSanitizer for the whole build: the test build runs with
# both, and any undefined behaviour stops the program instead of printing and going on.
if(QUILLOGRAPH_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
