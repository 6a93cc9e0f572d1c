# What goes where when Vellumora is installed for everybody on a machine.
include(GNUInstallDirs)
install(TARGETS vellumora DESTINATION ${CMAKE_INSTALL_BINDIR})
# Where the program looks for the rest of itself, whatever the system calls its folder for libraries.
install(TARGETS vellumora_program DESTINATION ${CMAKE_INSTALL_BINDIR}/../lib/vellumora)
install(FILES packaging/vellumora.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES packaging/vellumora.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES resources/vellumora.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES packaging/completions/vellumora.bash RENAME vellumora
  DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
install(FILES packaging/completions/_vellumora DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions)
install(FILES packaging/completions/vellumora.fish DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
