# Warnings every target of ours gets; third-party code is not touched.
function(quillograph_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
                                           -Wno-sign-conversion)
endfunction()
