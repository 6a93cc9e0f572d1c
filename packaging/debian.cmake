# Runs before a package is closed and adds what Debian wants to find in one.
set(usr ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr)
set(about ${usr}/share/doc/vellumora)

execute_process(COMMAND date --utc --rfc-email --date=${CPACK_VELLUMORA_DATE} OUTPUT_VARIABLE date
  OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
file(WRITE ${about}/changelog "vellumora (${CPACK_PACKAGE_VERSION}) stable; urgency=medium

  * Version ${CPACK_PACKAGE_VERSION}; ${CPACK_VELLUMORA_WEB_ROOT} says what is new.

 -- ${CPACK_PACKAGE_CONTACT}  ${date}
")
execute_process(COMMAND gzip -9n ${about}/changelog COMMAND_ERROR_IS_FATAL ANY)
file(WRITE ${about}/copyright "Format: https://www.debian.org/doc/packaging-manuals/copyright-format/1.0/
Upstream-Name: Vellumora
Source: ${CPACK_VELLUMORA_WEB_ROOT}

Files: *
Copyright: 2026 KLV
License: Vellumora
 All rights reserved. The terms of use are at ${CPACK_VELLUMORA_WEB_ROOT}en/aviso-legal
")

# Its places for libraries of a processor, and for what packages bring zsh.
file(MAKE_DIRECTORY ${usr}/lib/${CPACK_VELLUMORA_ARCHITECTURE})
file(RENAME ${usr}/lib/vellumora ${usr}/lib/${CPACK_VELLUMORA_ARCHITECTURE}/vellumora)
file(RENAME ${usr}/share/zsh/site-functions ${usr}/share/zsh/vendor-completions)
