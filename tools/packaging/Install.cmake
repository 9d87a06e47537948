# Installing Velmora on Linux: "cmake --install build --prefix P" and
# "cpack -G DEB" from the build tree. Included from the top CMakeLists.txt.
#
# The program finds its shipped files beside itself and otherwise in
# "../share/velmora" relative to its own folder (theme/ProgramFolders.cpp), so
# the binaries go to bin/ and the shipped files to share/velmora/ whatever the
# GNU install variables say, and an install under any prefix works.

set(VELMORA_PACKAGING_DIR "${CMAKE_SOURCE_DIR}/tools/packaging")
set(VELMORA_APP_ID io.github.ostrel_vane.velmora)
set(VELMORA_GENERATED_DIR "${CMAKE_BINARY_DIR}/packaging")

install(TARGETS velmora velmora-cli RUNTIME DESTINATION bin)

# The shipped files, laid out as beside the executable in the build tree.
install(DIRECTORY ${VELMORA_SHIPPED_FOLDERS} DESTINATION share/velmora)
install(FILES ${VELMORA_SHIPPED_TRANSLATIONS} DESTINATION share/velmora/translations)

# Desktop integration: the menu entry, the project file type, the software
# centre's description and the icon in every size of the hicolor theme.
install(FILES "${VELMORA_PACKAGING_DIR}/${VELMORA_APP_ID}.desktop" DESTINATION share/applications)
install(FILES "${VELMORA_PACKAGING_DIR}/${VELMORA_APP_ID}.mime.xml"
    DESTINATION share/mime/packages RENAME ${VELMORA_APP_ID}.xml)
configure_file("${VELMORA_PACKAGING_DIR}/${VELMORA_APP_ID}.metainfo.xml.in"
    "${VELMORA_GENERATED_DIR}/${VELMORA_APP_ID}.metainfo.xml" @ONLY)
install(FILES "${VELMORA_GENERATED_DIR}/${VELMORA_APP_ID}.metainfo.xml" DESTINATION share/metainfo)
install(DIRECTORY "${VELMORA_PACKAGING_DIR}/hicolor" DESTINATION share/icons)

# Manual pages, compressed as Debian ships them.
set(VELMORA_MAN_PAGES)
foreach(page velmora velmora-cli)
    configure_file("${VELMORA_PACKAGING_DIR}/man/${page}.1.in" "${VELMORA_GENERATED_DIR}/${page}.1" @ONLY)
    add_custom_command(OUTPUT "${VELMORA_GENERATED_DIR}/${page}.1.gz"
        COMMAND gzip -9 -n -f -k "${page}.1"
        DEPENDS "${VELMORA_GENERATED_DIR}/${page}.1"
        WORKING_DIRECTORY "${VELMORA_GENERATED_DIR}"
        VERBATIM)
    list(APPEND VELMORA_MAN_PAGES "${VELMORA_GENERATED_DIR}/${page}.1.gz")
endforeach()
add_custom_target(velmora-man-pages ALL DEPENDS ${VELMORA_MAN_PAGES})
install(FILES ${VELMORA_MAN_PAGES} DESTINATION share/man/man1)

install(FILES "${VELMORA_PACKAGING_DIR}/velmora-cli.bash"
    DESTINATION share/bash-completion/completions RENAME velmora-cli)
install(FILES "${CMAKE_SOURCE_DIR}/LICENSE" DESTINATION share/doc/velmora RENAME copyright)

# The Debian package. Its runtime dependencies come from dpkg-shlibdeps
# (dpkg-dev), which maps every library the binaries link to its package.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME velmora)
set(CPACK_PACKAGE_VENDOR "Ostrel Vane")
set(CPACK_PACKAGE_CONTACT "The Velmora developers <velmora@ostrel-vane.invalid>")
set(CPACK_PACKAGE_HOMEPAGE_URL "https://github.com/ostrel-vane/velmora")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "HUD editor for RPG Maker MZ games")
set(CPACK_PACKAGE_DESCRIPTION
    "Velmora edits the heads-up displays (HUDs) of games made with RPG Maker MZ:
it draws them out of text, shapes, pictures, gauges, windows, actor faces,
icons, groups and collections, binds them to the game's data and saves them
as one JSON document that the game's plugin reads. velmora-cli checks,
resaves and renders projects without a window.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The game runs through wine when the RPG Maker MZ folder has only the
# Windows runtime.
set(CPACK_DEBIAN_PACKAGE_SUGGESTS wine)
include(CPack)
