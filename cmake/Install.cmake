# What `cmake --install` puts where: the programs in bin, their data in share/quillograph (which
# the program finds relative to its own folder, ../share/quillograph), and the desktop's entry,
# file type and icons, so that the menu shows the program and a project file opens in it.
include(GNUInstallDirs)


# The programs link the system's Qt and our static libraries only: they need no run path.
set_target_properties(quillograph quillograph-cli PROPERTIES INSTALL_RPATH "")
install(TARGETS quillograph quillograph-cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

set(data_destination ${CMAKE_INSTALL_DATADIR}/quillograph)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/data/Ribbon ${PROJECT_SOURCE_DIR}/data/Icons ${PROJECT_SOURCE_DIR}/data/pages
        DESTINATION ${data_destination})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/data/Functions DESTINATION ${data_destination} FILES_MATCHING PATTERN "*.qlfn")
install(FILES "${PROJECT_SOURCE_DIR}/data/What is new.rtf" "${PROJECT_SOURCE_DIR}/data/Support Us.rtf"
        DESTINATION ${data_destination})
# Made by the build: the samples' pictures and the manual.
install(DIRECTORY ${CMAKE_BINARY_DIR}/data/Functions DESTINATION ${data_destination} FILES_MATCHING PATTERN "*.jpg")
install(FILES ${CMAKE_BINARY_DIR}/data/Help.pdf DESTINATION ${data_destination})
install(DIRECTORY ${CMAKE_BINARY_DIR}/data/manual DESTINATION ${data_destination})

install(FILES ${PROJECT_SOURCE_DIR}/data/desktop/quillograph.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${PROJECT_SOURCE_DIR}/data/desktop/quillograph-mime.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages
        RENAME quillograph.xml)
foreach(icon quillograph application-x-quillograph-project)
  if(icon STREQUAL "quillograph")
    set(context apps)
  else()
    set(context mimetypes)
  endif()
  install(FILES ${PROJECT_SOURCE_DIR}/data/Icons/${icon}.svg
          DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/${context})
  foreach(size 16 24 32 48 64 128 256)
    install(FILES ${CMAKE_BINARY_DIR}/data/icons/${size}x${size}/${icon}.png
            DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/${context})
  endforeach()
endforeach()
