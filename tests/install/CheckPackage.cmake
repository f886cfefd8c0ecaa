# cmake -DBUILD=<build folder> -DOUT=<empty folder> -P CheckPackage.cmake
# The Debian package of the build: its files in place under /usr and its dependencies declared.
file(REMOVE_RECURSE ${OUT})
execute_process(COMMAND ${CMAKE_CPACK_COMMAND} -G DEB -D CPACK_DEBIAN_COMPRESSION_TYPE=none -B ${OUT}
                WORKING_DIRECTORY ${BUILD} RESULT_VARIABLE failed OUTPUT_QUIET)
if(failed)
  message(FATAL_ERROR "cpack -G DEB failed")
endif()
file(GLOB package "${OUT}/quillograph_*.deb")
if(NOT package)
  message(FATAL_ERROR "no quillograph_*.deb was made")
endif()
execute_process(COMMAND dpkg-deb -c ${package} OUTPUT_VARIABLE contents RESULT_VARIABLE failed)
if(failed)
  message(FATAL_ERROR "dpkg-deb cannot read ${package}")
endif()
foreach(file
    ./usr/bin/quillograph
    ./usr/bin/quillograph-cli
    ./usr/share/quillograph/Ribbon/Ribbon.xcb
    ./usr/share/quillograph/Help.pdf
    ./usr/share/quillograph/manual/index.html
    ./usr/share/quillograph/Functions/Batman.jpg
    ./usr/share/applications/quillograph.desktop
    ./usr/share/mime/packages/quillograph.xml
    ./usr/share/icons/hicolor/scalable/apps/quillograph.svg)
  string(FIND "${contents}" " ${file}\n" at)
  if(at EQUAL -1)
    message(FATAL_ERROR "not in the package: ${file}")
  endif()
endforeach()
execute_process(COMMAND dpkg-deb -f ${package} Package Version Depends OUTPUT_VARIABLE control)
foreach(needed "Package: quillograph" "Version: 1.0" "libqt6widgets6" "libqt6svg6" "qt6-qpa-plugins")
  string(FIND "${control}" "${needed}" at)
  if(at EQUAL -1)
    message(FATAL_ERROR "the package's control lacks ${needed}:\n${control}")
  endif()
endforeach()
file(REMOVE_RECURSE ${OUT})
