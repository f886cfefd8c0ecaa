# ctest's check of the built manual: cmake -DPDF=path/Help.pdf -P CheckManual.cmake
# The PDF must be there, be a PDF and be large enough to hold its pictures (more than 100 KB).
if(NOT DEFINED PDF)
  message(FATAL_ERROR "CheckManual.cmake: pass -DPDF=<path of Help.pdf>")
endif()
if(NOT EXISTS "${PDF}")
  message(FATAL_ERROR "The manual was not built: ${PDF} is missing")
endif()
file(SIZE "${PDF}" size)
if(size LESS_EQUAL 102400)
  message(FATAL_ERROR "The manual is too small to be whole: ${PDF} has ${size} bytes")
endif()
file(READ "${PDF}" head LIMIT 4 HEX)
if(NOT head STREQUAL "25504446")  # "%PDF"
  message(FATAL_ERROR "${PDF} does not start with %PDF")
endif()
message(STATUS "${PDF}: a PDF of ${size} bytes")
