# The few words in which the build files of the rooms are written.

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion -Werror)


set(vellumora_no_casts QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII)

# The toolkit's headers that most rooms include, compiled once for all of them: reading them takes longer than compiling
# most files. Rooms include what they use all the same; the tidy preset builds without this.
function(vellumora_room_headers)
  file(GENERATE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/headers.cpp CONTENT "")
  add_library(vellumora_room_headers STATIC ${CMAKE_CURRENT_BINARY_DIR}/headers.cpp)
  target_link_libraries(vellumora_room_headers PRIVATE Qt6::Core)
  # Without the definitions of these two: what is defined here has to be in every room.
  foreach(module Gui Widgets)
    target_include_directories(vellumora_room_headers SYSTEM PRIVATE $<TARGET_PROPERTY:Qt6::${module},INTERFACE_INCLUDE_DIRECTORIES>)
  endforeach()
  target_compile_definitions(vellumora_room_headers PRIVATE ${vellumora_no_casts})
  target_precompile_headers(vellumora_room_headers PRIVATE
    <algorithm> <functional> <memory> <optional> <variant> <vector> <QImage> <QPainter> <QRegion> <QString> <QTimer> <QWidget>)
endfunction()

# One library asks for this; headers that are compiled once must see the same everywhere.
add_compile_definitions(_REENTRANT)

# vellumora_room(overlay SOURCES a.cpp … LINKS Qt6::Widgets vellumora_base …)
# makes the static library vellumora_overlay out of one folder below src/. OWN_FLAGS: it is compiled in a way of its own.
function(vellumora_room name)
  cmake_parse_arguments(PARSE_ARGV 1 room "MOC;OWN_FLAGS" "" "SOURCES;LINKS;PRIVATE_LINKS")
  add_library(vellumora_${name} STATIC ${room_SOURCES})
  target_include_directories(vellumora_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_compile_definitions(vellumora_${name} PRIVATE ${vellumora_no_casts})
  target_link_libraries(vellumora_${name} PUBLIC ${room_LINKS} PRIVATE ${room_PRIVATE_LINKS})
  if(room_LINKS AND NOT room_OWN_FLAGS) # without links it knows no toolkit
    target_precompile_headers(vellumora_${name} REUSE_FROM vellumora_room_headers)
  endif()
  if(room_MOC)
    set_target_properties(vellumora_${name} PROPERTIES AUTOMOC ON)
  endif()
endfunction()

# What most tests include, compiled once for all of them. Only the rooms under
# test are made fast and watched for undefined behaviour: both take longest to
# compile, and a test runs once.
function(vellumora_test_headers)
  file(GENERATE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/headers.cpp CONTENT "")
  add_library(vellumora_test_headers STATIC ${CMAKE_CURRENT_BINARY_DIR}/headers.cpp)
  target_link_libraries(vellumora_test_headers PUBLIC Qt6::Widgets)
  target_compile_options(vellumora_test_headers PUBLIC -O0 -fno-sanitize=undefined)
  target_precompile_headers(vellumora_test_headers PRIVATE
    <algorithm> <functional> <memory> <QApplication> <QImage> <QPainter> <QString> <QTemporaryDir> <QTimer>)
endfunction()

# vellumora_test(overlay/SelectionDrag LINKS vellumora_overlay)
# builds tests/overlay/SelectionDragTest.cpp and runs it on the offscreen platform.
function(vellumora_test path)
  cmake_parse_arguments(PARSE_ARGV 1 test "" "" "LINKS;ENVIRONMENT;COMMAND")
  get_filename_component(name ${path} NAME)
  add_executable(${name}Test ${path}Test.cpp)
  target_link_libraries(${name}Test PRIVATE vellumora_test_headers Qt6::Test ${test_LINKS})
  target_precompile_headers(${name}Test REUSE_FROM vellumora_test_headers)
  # Asked for by name: looking through every test for it takes as long as compiling some of them.
  set(moc ${CMAKE_CURRENT_BINARY_DIR}/moc/${name}Test.moc)
  qt_generate_moc(${path}Test.cpp ${moc} TARGET ${name}Test)
  target_sources(${name}Test PRIVATE ${moc})
  target_include_directories(${name}Test PRIVATE ${PROJECT_SOURCE_DIR}/tests ${CMAKE_CURRENT_BINARY_DIR}/moc)
  if(NOT test_COMMAND)
    set(test_COMMAND ${name}Test)
  endif()
  add_dependencies(unit_tests ${name}Test)
  add_test(NAME ${path} COMMAND ${test_COMMAND})
  set_tests_properties(${path} PROPERTIES LABELS unit TIMEOUT 120
    ENVIRONMENT "QT_SCREEN_SCALE_FACTORS=A=2\\;B=1\\;C=1.25;QT_QPA_PLATFORM=offscreen:configfile=${PROJECT_SOURCE_DIR}/tests/support/screens.json;VELLUMORA_IDIOMA=en;${test_ENVIRONMENT}")
endfunction()

# vellumora_compositor_test(sway platform/ScreencopyGrabber)
# is a test of the Wayland back end that runs inside that compositor.
function(vellumora_compositor_test compositor path)
  cmake_parse_arguments(PARSE_ARGV 2 test "" "" "ENVIRONMENT")
  get_filename_component(name ${path} NAME)
  vellumora_test(${path} LINKS vellumora_platform_wayland COMMAND ${PROJECT_SOURCE_DIR}/tests/support/in-${compositor} $<TARGET_FILE:${name}Test>)
  set_tests_properties(${path} PROPERTIES ENVIRONMENT "VELLUMORA_IDIOMA=en;${test_ENVIRONMENT}" LABELS system)
  add_dependencies(system_tests ${name}Test)
endfunction()

# vellumora_update_key(key.pem SOURCE) makes a source file out of a public key
# and names it in SOURCE.
function(vellumora_update_key file out)
  file(READ ${file} key)
  string(STRIP "${key}" key)
  if(NOT key MATCHES "^-----BEGIN PUBLIC KEY-----\n[A-Za-z0-9+/=\n]+-----END PUBLIC KEY-----$")
    message(FATAL_ERROR "${file} is not a public key in PEM form")
  endif()
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file})
  configure_file(${PROJECT_SOURCE_DIR}/src/updater/UpdateKey.cpp.in ${CMAKE_CURRENT_BINARY_DIR}/UpdateKey.cpp @ONLY)
  set(${out} ${CMAKE_CURRENT_BINARY_DIR}/UpdateKey.cpp PARENT_SCOPE)
endfunction()

# vellumora_wayland_protocols(platform_wayland a.xml …) makes the client's side of these protocols and compiles it in; the
# headers are included as "a-client.h". SERVER makes the other side and "a-server.h".
function(vellumora_wayland_protocols room)
  cmake_parse_arguments(PARSE_ARGV 1 protocols "SERVER" "" "")
  set(side client)
  if(protocols_SERVER)
    set(side server)
  endif()
  find_program(WAYLAND_SCANNER wayland-scanner REQUIRED)
  foreach(file ${protocols_UNPARSED_ARGUMENTS})
    get_filename_component(path ${file} ABSOLUTE)
    get_filename_component(name ${file} NAME_WE)
    set(made ${CMAKE_CURRENT_BINARY_DIR}/${name})
    add_custom_command(OUTPUT ${made}-${side}.h ${made}.c DEPENDS ${path}
      COMMAND ${WAYLAND_SCANNER} ${side}-header ${path} ${made}-${side}.h
      COMMAND ${WAYLAND_SCANNER} private-code ${path} ${made}.c)
    add_library(${side}_${name} STATIC ${made}-${side}.h ${made}.c) # in C, unlike the room
    target_link_libraries(${side}_${name} PUBLIC PkgConfig::WAYLAND)
    target_include_directories(${side}_${name} SYSTEM INTERFACE ${CMAKE_CURRENT_BINARY_DIR})
    target_link_libraries(vellumora_${room} PUBLIC ${side}_${name})
  endforeach()
endfunction()
