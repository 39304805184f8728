# Makes a Debian package of the installed files with `cpack`: see deb.sh.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME orvane)
set(CPACK_PACKAGE_VENDOR "Brinlow Software")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "software MIDI performance controller")
set(CPACK_PACKAGE_DESCRIPTION
    "Orvane turns what is played on keys of the computer, MIDI devices and
joysticks into MIDI events, routes them through layers, zones, arpeggios and
oscillators, keeps a record of them, and hands them to MIDI outputs and to a
synthesizer of its own. It is one client in a JACK or PipeWire graph, and
plays through ALSA without one.
.
The library and the headers that a host of one's own is built with
are part of this package.")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/CompressPages.cmake)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
# The name and address of the maintainer come from the variables that Debian's tools read.
if(DEFINED ENV{DEBEMAIL})
  set(packager "$ENV{DEBFULLNAME} <$ENV{DEBEMAIL}>")
else()
  set(packager "Orvane developers <orvane@localhost>")
endif()
set(CPACK_DEBIAN_PACKAGE_MAINTAINER ${packager})
configure_file(changelog.in changelog @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/changelog DESTINATION share/doc/orvane)
set(CPACK_DEBIAN_PACKAGE_SECTION sound)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
set(CPACK_DEBIAN_PACKAGE_DEPENDS "timgm6mb-soundfont | sf2-soundfont-gm")  # and the libraries it is linked with
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-liberation, xdg-utils")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "jackd2 | pipewire-jack, qt6-wayland")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)
