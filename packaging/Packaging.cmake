# The Debian package: `cpack` in the build folder, after a build.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tolvane)
set(CPACK_PACKAGE_VENDOR "Tolvane developers")
set(CPACK_PACKAGE_CONTACT "Tolvane developers <tolvane@example.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Video poker machine, strategy trainer and pay-table analyser")
set(CPACK_PACKAGE_DESCRIPTION
"A casino five-card-draw video poker machine with forty-two games, from Jacks or
Better and its bonus families to deuces wild, up to five jokers, Pick 'Em,
double draw and games of one's own, with doubling up.
.
The trainer knows the exact return of all 32 holds of every hand: it warns of
a hold that is not the best one before the draw, says what it costs, and deals
the player's errors again. The analyser computes the exact return and variance
of a whole pay table, in the window while the table is edited, and on the
command line with tolvane-cli, as text or as JSON.
.
Credits are counted, never paid: the machine takes and gives no money.")
set(CPACK_STRIP_FILES ON)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/FolderPermissions.cmake)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION games)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)  # the libraries, that of the SVG pictures among them
if(TOLVANE_GUI)
  # The face that stands for Arial, and that of menus and dialogs: where only the first one is installed, they
  # come out in its typewriter face.
  set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-liberation, fonts-dejavu-core")
  # Without them there is no window on a desktop without X, and no sound.
  set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-wayland, pipewire-pulse | pulseaudio")
endif()
include(CPack)
