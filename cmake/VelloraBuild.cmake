# How every target of the planner is built.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

# The sources of a target are compiled as one: nearly all of a compiler's time goes into the headers
# that they share. So a name in an anonymous namespace is taken for its whole folder.
set(CMAKE_UNITY_BUILD ON)
set(CMAKE_UNITY_BUILD_BATCH_SIZE 0)

find_program(VELLORA_CCACHE ccache)
if(VELLORA_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${VELLORA_CCACHE}")
endif()

set(VELLORA_SANITIZE "" CACHE STRING "Sanitizers for every target, for example address,undefined")
option(VELLORA_COVERAGE "Count executed lines" OFF)

add_library(vellora_flags INTERFACE)
target_compile_options(vellora_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual -Werror
  # Takes sources that are compiled together for headers.
  $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
target_compile_definitions(vellora_flags INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_USE_QSTRINGBUILDER
  QT_NO_NARROWING_CONVERSIONS_IN_CONNECT)
# What an attacker's file would need is taken from it: overwritten return addresses are noticed, and
# the tables of the linker cannot be written once the program runs.
set(hardening -fstack-protector-strong -fstack-clash-protection -D_FORTIFY_SOURCE=2)
if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64")
  list(APPEND hardening -fcf-protection)
endif()
target_compile_options(vellora_flags INTERFACE
  "$<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:${hardening}>")
target_link_options(vellora_flags INTERFACE -Wl,-z,relro,-z,now)
if(VELLORA_SANITIZE)
  target_compile_options(vellora_flags INTERFACE
    -fsanitize=${VELLORA_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(vellora_flags INTERFACE -fsanitize=${VELLORA_SANITIZE})
endif()
if(VELLORA_COVERAGE)
  target_compile_options(vellora_flags INTERFACE --coverage)
  target_link_options(vellora_flags INTERFACE --coverage)
endif()

# vellora_folder(<target> <folder below src> [MOC] SOURCES ... LINKS ...)
#
# One folder, one library. Its headers are reachable as "<folder>/<header>.h" only through an
# include directory of its own, so that an include which the links do not allow fails to compile.
# MOC is for folders that declare Qt objects.
function(vellora_folder target folder)
  cmake_parse_arguments(PARSE_ARGV 2 ARG "MOC" "" "SOURCES;LINKS")
  set(include_root "${CMAKE_BINARY_DIR}/include/${target}")
  get_filename_component(parent "${include_root}/${folder}" DIRECTORY)
  file(MAKE_DIRECTORY "${parent}")
  file(CREATE_LINK "${CMAKE_SOURCE_DIR}/src/${folder}" "${include_root}/${folder}" SYMBOLIC)
  add_library(${target} STATIC ${ARG_SOURCES})
  target_include_directories(${target} PUBLIC "${include_root}")
  target_link_libraries(${target} PUBLIC ${ARG_LINKS} PRIVATE vellora_flags)
  set_target_properties(${target} PROPERTIES AUTOMOC "${ARG_MOC}")
endfunction()

# vellora_test(<name> [WIDGETS] SOURCES ... LINKS ...)
#
# One test program for a folder. WIDGETS gives it a QApplication on the offscreen platform.
function(vellora_test name)
  cmake_parse_arguments(PARSE_ARGV 1 ARG "WIDGETS" "" "SOURCES;LINKS")
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_LINKS} test_support vellora_flags GTest::gtest)
  if(ARG_WIDGETS)
    target_link_libraries(${name} PRIVATE widget_test_main)
  else()
    target_link_libraries(${name} PRIVATE GTest::gtest_main)
  endif()
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen" TIMEOUT 300)
endfunction()
