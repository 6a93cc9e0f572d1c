# The few words in which the build files of the rooms are written.

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion -Werror)

# vellumora_room(overlay SOURCES a.cpp … LINKS Qt6::Widgets vellumora_base …)
# makes the static library vellumora_overlay out of one folder below src/.
function(vellumora_room name)
  cmake_parse_arguments(PARSE_ARGV 1 room "MOC" "" "SOURCES;LINKS;PRIVATE_LINKS")
  add_library(vellumora_${name} STATIC ${room_SOURCES})
  target_include_directories(vellumora_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_compile_definitions(vellumora_${name} PRIVATE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII)
  target_link_libraries(vellumora_${name} PUBLIC ${room_LINKS} PRIVATE ${room_PRIVATE_LINKS})
  if(room_MOC)
    set_target_properties(vellumora_${name} PROPERTIES AUTOMOC ON)
  endif()
endfunction()

# vellumora_test(overlay/SelectionDrag LINKS vellumora_overlay)
# builds tests/overlay/SelectionDragTest.cpp and runs it on the offscreen platform.
function(vellumora_test path)
  cmake_parse_arguments(PARSE_ARGV 1 test "" "" "LINKS;ENVIRONMENT")
  get_filename_component(name ${path} NAME)
  add_executable(${name}Test ${path}Test.cpp)
  set_target_properties(${name}Test PROPERTIES AUTOMOC ON)
  target_include_directories(${name}Test PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(${name}Test PRIVATE Qt6::Test ${test_LINKS})
  add_test(NAME ${path} COMMAND ${name}Test)
  set_tests_properties(${path} PROPERTIES LABELS unit TIMEOUT 120
    ENVIRONMENT "QT_SCREEN_SCALE_FACTORS=A=2\\;B=1\\;C=1.25;QT_QPA_PLATFORM=offscreen:configfile=${PROJECT_SOURCE_DIR}/tests/support/screens.json;VELLUMORA_IDIOMA=en;${test_ENVIRONMENT}")
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
