# The package for Debian; packaging/make-deb makes it.
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON) # or every test would be built first

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vellumora)
set(CPACK_PACKAGE_VENDOR KLV)
set(CPACK_PACKAGE_CONTACT "KLV <vellumora@vellumora.example>")
set(CPACK_PACKAGE_HOMEPAGE_URL ${VELLUMORA_WEB_ROOT})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "screenshots with marks, from a frozen screen")
set(CPACK_PACKAGE_DESCRIPTION "One shortcut freezes every screen and covers it with its own still picture.\n\
Drag out a region, adjust it, draw on it, and copy, save or print it.\n\
A pencil stroke held still at its end becomes the shape it was meant to be.\n.\n\
Vellumora waits in the tray of X11 desktops and in Wayland sessions.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/packaging/debian.cmake)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# What is opened by name: windows on Wayland, drawn icons, the toolkit's own texts, the certificates of the website.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-wayland, libqt6svg6, qt6-translations-l10n, ca-certificates")
# A font, the sound server, and what opens the website.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-dejavu-core, libcanberra-pulse, xdg-utils")

set(CPACK_VELLUMORA_ARCHITECTURE ${CMAKE_LIBRARY_ARCHITECTURE})
set(CPACK_VELLUMORA_DATE ${VELLUMORA_DATE})
set(CPACK_VELLUMORA_WEB_ROOT ${VELLUMORA_WEB_ROOT})
include(CPack)
