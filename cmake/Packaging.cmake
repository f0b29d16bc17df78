# What an installation carries besides the program and its installation
# files: the manual page and, with the windows, the desktop entry, its icon
# and the software centre's description. And the Debian package of
# make package (docs/packaging.md), made from the installation by CPack.

# One name for the desktop entry, the icon and the metainfo, so that a
# software centre joins the three.
set(CORVALIN_APP_ID org.corvalin.corvalin)
set(CORVALIN_HOMEPAGE https://corvalin.org/)

# The manual page, installed compressed as the manual pages beside it are;
# -n leaves the time out, so the package's bytes do not change by the day.
find_program(CORVALIN_GZIP gzip REQUIRED)
set(CORVALIN_MAN_PAGE ${CMAKE_BINARY_DIR}/man/corvalin.1.gz)
add_custom_command(
  OUTPUT ${CORVALIN_MAN_PAGE}
  COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/man
  COMMAND ${CORVALIN_GZIP} -9 -n -c ${CMAKE_SOURCE_DIR}/data/man/corvalin.1 > ${CORVALIN_MAN_PAGE}
  DEPENDS ${CMAKE_SOURCE_DIR}/data/man/corvalin.1
  COMMENT "Compressing the manual page")
add_custom_target(corvalin_man ALL DEPENDS ${CORVALIN_MAN_PAGE})
install(FILES ${CORVALIN_MAN_PAGE} DESTINATION share/man/man1)

if(CORVALIN_DESKTOP)
  set(desktop_dir ${CMAKE_SOURCE_DIR}/data/desktop)
  install(FILES ${desktop_dir}/${CORVALIN_APP_ID}.desktop DESTINATION share/applications)
  install(FILES ${desktop_dir}/${CORVALIN_APP_ID}.metainfo.xml DESTINATION share/metainfo)
  install(FILES ${desktop_dir}/icons/${CORVALIN_APP_ID}.svg DESTINATION share/icons/hicolor/scalable/apps)
  # Rendered from the SVG by tools/render-icons.sh.
  foreach(size 16 24 32 48 64 128 256)
    install(FILES ${desktop_dir}/icons/${size}x${size}/${CORVALIN_APP_ID}.png
            DESTINATION share/icons/hicolor/${size}x${size}/apps)
  endforeach()
endif()

# The Convert folder, which the program makes beside the installation files
# when it may write there, comes empty with the installation: a run as root
# then finds it, and the package owns it, so that removing the package
# leaves no folder of its own behind.
install(DIRECTORY DESTINATION share/corvalin/Convert)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME corvalin)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/package)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PACKAGE_CONTACT "Corvalin developers <packages@corvalin.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "translate forest tree inventory files into a growth model's tree list")
# The summary is put in front of this as the description's first line.
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "Corvalin reads the tree inventory a field crew brings back, one tree per
line in a delimited or fixed-column text file, and writes the fixed-column
tree list file that a forest growth model runs on. A wizard marks the
columns, names what each holds and in which units, fixes rows with template
commands and saves it all as a template; an unattended run then translates
further surveys with that template from scripts, without a display.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE ${CORVALIN_HOMEPAGE})
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
# The libraries the program and its windows link come from dpkg-shlibdeps.
# It cannot see what Qt loads at run time: the windows need its X11 (xcb)
# platform plugin. The help page opens in the browser through xdg-open.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-qpa-plugins")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "xdg-utils")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# CPack adds a postinst and a postrm that call ldconfig, because the windows'
# module lies below /usr/lib. The program loads it by its path, so the call
# does nothing for it, and it touches nothing else (tools/package-check.sh
# holds the scripts to that).
include(CPack)
