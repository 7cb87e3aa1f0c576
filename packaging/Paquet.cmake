# What the Debian package says of itself; `packaging/build-package` builds it.

set(OVELIN_CONTACT "OVELIN developers <ovelin@example.org>" CACHE STRING "Who answers for the package: name <address>")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ovelin)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT ${OVELIN_CONTACT})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "from a drawing to the moves of a small router")
set(CPACK_PACKAGE_DESCRIPTION
"OVELIN takes two-dimensional drawings (DXF, SVG, PDF, HPGL, EPS, coordinate
files, drill files, its own projects), prepares the tool paths of a small
three-axis router (tool offset, pockets, holding notches, start points,
clean-up, lettering) and delivers the job as a G-code file, in the dialect of
the control, or to a step-and-direction board. It loads, judges, shows and runs
G-code files as well.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Pictures in SVG are drawn by a plugin, fonts, Ghostscript and poppler are other programs: no library tells of these.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libqt6svg6, fonts-dejavu-core")
# The second has the words of Qt's own dialogs, as the columns of the file dialog, in the user's language.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "ghostscript, poppler-utils, qt6-translations-l10n")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

install(FILES ${CMAKE_CURRENT_LIST_DIR}/ovelin.metainfo.xml DESTINATION share/metainfo)
install(FILES ${CMAKE_CURRENT_LIST_DIR}/copyright DESTINATION share/doc/ovelin)
install(FILES ${CMAKE_CURRENT_LIST_DIR}/70-ovelin-board.rules DESTINATION share/doc/ovelin/examples)
# The manual, where `dev/manual` has built it; help looks for it beside the texts.
install(FILES "${CMAKE_SOURCE_DIR}/build/manual/OVELIN V4.pdf" DESTINATION share/ovelin OPTIONAL)
install(FILES "${CMAKE_SOURCE_DIR}/build/manual/en/OVELIN V4.pdf" DESTINATION share/ovelin/en OPTIONAL)
install(DIRECTORY ${CMAKE_SOURCE_DIR}/build/manual/html DESTINATION share/doc/ovelin OPTIONAL)
# Made behind the build, since they are the programs' own words.
install(DIRECTORY ${CMAKE_BINARY_DIR}/pages/man1 DESTINATION share/man OPTIONAL)
install(FILES ${CMAKE_BINARY_DIR}/pages/changelog.gz DESTINATION share/doc/ovelin OPTIONAL)

include(CPack)
