# What desktops, shells and readers of manuals want to know of the program, put together in share/ of the build folder as it lies
# below the prefix: packages install it, and bundles carry it along.
include(GNUInstallDirs)
set(share ${PROJECT_BINARY_DIR}/share)
set(made)

foreach(file IN ITEMS applications/${VELLUMORA_ID}.desktop:vellumora.desktop dbus-1/services/${VELLUMORA_ID}.service:vellumora.service
    metainfo/${VELLUMORA_ID}.metainfo.xml:vellumora.metainfo.xml)
  string(REPLACE ":" ";" file ${file})
  list(GET file 0 place)
  list(GET file 1 template)
  configure_file(packaging/${template}.in ${share}/${place} @ONLY)
endforeach()

# The sizes that desktops ask for; the smaller ones have drawings of their own, or nothing in them would be clear.
find_program(RSVG_CONVERT rsvg-convert REQUIRED)
set(icons ${share}/icons/hicolor)
foreach(side IN ITEMS 16 22 24 32 48 64 128 256 512)
  set(drawing ${PROJECT_SOURCE_DIR}/resources/vellumora.svg)
  if(side EQUAL 16 OR side EQUAL 32)
    set(drawing ${PROJECT_SOURCE_DIR}/resources/icons/vellumora-16.svg)
  elseif(side LESS 32)
    set(drawing ${PROJECT_SOURCE_DIR}/resources/icons/vellumora-24.svg)
  endif()
  set(icon ${icons}/${side}x${side}/apps/${VELLUMORA_ID}.png)
  add_custom_command(OUTPUT ${icon} DEPENDS ${drawing}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${icons}/${side}x${side}/apps
    COMMAND ${RSVG_CONVERT} --width ${side} --height ${side} --output ${icon} ${drawing})
  list(APPEND made ${icon})
endforeach()
configure_file(resources/vellumora.svg ${icons}/scalable/apps/${VELLUMORA_ID}.svg COPYONLY)
configure_file(resources/icons/vellumora-symbolic.svg ${icons}/symbolic/apps/${VELLUMORA_ID}-symbolic.svg COPYONLY)

find_program(GZIP gzip REQUIRED)
foreach(section IN ITEMS man1 es/man1)
  set(page ${PROJECT_BINARY_DIR}/man/${section}/vellumora.1)
  configure_file(packaging/man/${section}/vellumora.1.in ${page} @ONLY)
  set(packed ${share}/man/${section}/vellumora.1.gz)
  add_custom_command(OUTPUT ${packed} DEPENDS ${page}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${share}/man/${section}
    COMMAND ${GZIP} -9nc ${page} > ${packed})
  list(APPEND made ${packed})
endforeach()

configure_file(packaging/completions/vellumora.bash ${share}/bash-completion/completions/vellumora COPYONLY)
configure_file(packaging/completions/_vellumora ${share}/zsh/site-functions/_vellumora COPYONLY)
configure_file(packaging/completions/vellumora.fish ${share}/fish/vendor_completions.d/vellumora.fish COPYONLY)

add_custom_target(data ALL DEPENDS ${made})
add_dependencies(program data)
