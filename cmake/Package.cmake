# `cpack -G DEB` in a Release build: a Debian package of what `cmake --install` puts in place (the
# program, the command line, the sibling tools, the data, the desktop entry, the file type and the
# icons), with the libraries it needs found by dpkg-shlibdeps.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quillograph)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "Quillograph maintainers <maintainers@quillograph.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Graphing mathematics for students and teachers")
set(CPACK_PACKAGE_DESCRIPTION
    "Quillograph draws equations typed into rows: y=f(x), x=f(y), polar and implicit curves, restricted curves, constants, points, inequalities, parametric curves and 3D surfaces. It saves projects as plain text and exports pictures.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION math)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Qt's SVG support draws the icons; it is loaded as a plug-in, so shlibdeps cannot see it.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libqt6svg6, qt6-qpa-plugins")
include(CPack)
