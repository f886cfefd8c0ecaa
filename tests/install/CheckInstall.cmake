# cmake -DBUILD=<build folder> -DPREFIX=<empty prefix> -P CheckInstall.cmake
file(REMOVE_RECURSE ${PREFIX})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${PREFIX} RESULT_VARIABLE failed OUTPUT_QUIET)
if(failed)
  message(FATAL_ERROR "cmake --install failed")
endif()

set(expected
  bin/quillograph
  bin/quillograph-cli
  share/quillograph/Ribbon/Ribbon.xcb
  share/quillograph/Ribbon/Quillograph.qss
  share/quillograph/Icons/quillograph.svg
  share/quillograph/Functions/Batman.qlfn
  share/quillograph/Functions/Batman.jpg
  "share/quillograph/Functions/8 Curve_Y.qlfn"
  "share/quillograph/Functions/8 Curve_Y.jpg"
  share/quillograph/pages/about.html
  share/quillograph/pages/tutorial.html
  share/quillograph/pages/contact.html
  "share/quillograph/What is new.rtf"
  "share/quillograph/Support Us.rtf"
  share/quillograph/Help.pdf
  share/quillograph/manual/index.html
  share/quillograph/manual/plot.html
  share/quillograph/manual/manual.css
  share/quillograph/manual/first-graph.png
  share/applications/quillograph.desktop
  share/mime/packages/quillograph.xml
  share/icons/hicolor/scalable/apps/quillograph.svg
  share/icons/hicolor/48x48/apps/quillograph.png
  share/icons/hicolor/256x256/apps/quillograph.png
  share/icons/hicolor/scalable/mimetypes/application-x-quillograph-project.svg
  share/icons/hicolor/32x32/mimetypes/application-x-quillograph-project.png
)
foreach(file IN LISTS expected)
  if(NOT EXISTS "${PREFIX}/${file}")
    message(FATAL_ERROR "not installed: ${file}")
  endif()
endforeach()
file(GLOB samples "${PREFIX}/share/quillograph/Functions/*.qlfn")
file(GLOB pictures "${PREFIX}/share/quillograph/Functions/*.jpg")
list(LENGTH samples sample_count)
list(LENGTH pictures picture_count)
if(NOT sample_count EQUAL 24 OR NOT picture_count EQUAL 24)
  message(FATAL_ERROR "24 samples with 24 pictures expected, found ${sample_count} and ${picture_count}")
endif()

find_program(validate desktop-file-validate REQUIRED)
execute_process(COMMAND ${validate} ${PREFIX}/share/applications/quillograph.desktop
                RESULT_VARIABLE failed OUTPUT_VARIABLE said ERROR_VARIABLE said)
if(failed OR said MATCHES "error")
  message(FATAL_ERROR "the desktop entry is not valid: ${said}")
endif()

# The file type: the database built from our package knows it, by both endings.
find_program(update_mime update-mime-database REQUIRED)
execute_process(COMMAND ${update_mime} ${PREFIX}/share/mime RESULT_VARIABLE failed OUTPUT_QUIET ERROR_VARIABLE said)
if(failed OR NOT EXISTS ${PREFIX}/share/mime/application/x-quillograph-project.xml)
  message(FATAL_ERROR "the file type does not build: ${said}")
endif()
file(READ ${PREFIX}/share/mime/globs2 globs)
if(NOT globs MATCHES "application/x-quillograph-project:\\*\\.qlp" OR NOT globs MATCHES "application/x-quillograph-project:\\*\\.qlfn")
  message(FATAL_ERROR "the file type misses an ending: ${globs}")
endif()

# The installed command line tool finds the ribbon and the samples beside it, with no help from
# the build tree.
set(runtime ${PREFIX}/runtime)
file(MAKE_DIRECTORY ${runtime})
file(CHMOD ${runtime} DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
execute_process(
  COMMAND ${CMAKE_COMMAND} -E env --unset=QUILLOGRAPH_DATA QT_QPA_PLATFORM=offscreen XDG_RUNTIME_DIR=${runtime}
          HOME=${PREFIX}/home ASAN_OPTIONS=detect_leaks=0
          ${PREFIX}/bin/quillograph-cli render ${PREFIX}/share/quillograph/Functions/Heart.qlfn ${PREFIX}/heart.png
  RESULT_VARIABLE failed ERROR_VARIABLE said)
if(failed OR NOT EXISTS ${PREFIX}/heart.png)
  message(FATAL_ERROR "the installed quillograph-cli could not draw a sample: ${said}")
endif()
