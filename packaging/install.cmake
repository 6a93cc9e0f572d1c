# What goes where when Vellumora is installed for everybody on a machine.
install(TARGETS vellumora DESTINATION ${CMAKE_INSTALL_BINDIR})
# Where the program looks for the rest of itself, whatever the system calls its folder for libraries.
install(TARGETS vellumora_program DESTINATION ${CMAKE_INSTALL_BINDIR}/../lib/vellumora)
install(DIRECTORY ${PROJECT_BINARY_DIR}/share/ DESTINATION ${CMAKE_INSTALL_DATADIR})
install(CODE "set(bin \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}\")
set(share \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_DATADIR}\")
set(id ${VELLUMORA_ID})")
install(SCRIPT packaging/settle.cmake)
