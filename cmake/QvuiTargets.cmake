# The functions that every room's CMakeLists.txt is written with.

option(QVUI_WARNINGS_AS_ERRORS "Treat warnings as errors" OFF)
set(QVUI_SANITIZE "" CACHE STRING "Sanitizers, as for -fsanitize=")

# Warnings for our own sources.
add_library(qvui_warnings INTERFACE)
target_compile_options(qvui_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wno-sign-conversion
  $<$<BOOL:${QVUI_WARNINGS_AS_ERRORS}>:-Werror>)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # A function found in a module comes as a generic function pointer; converting it is how it is used.
  target_compile_options(qvui_warnings INTERFACE -Wno-cast-function-type)
endif()
if(WIN32)
  # mingw's headers spell calling conventions in ways that these two object to.
  target_compile_options(qvui_warnings INTERFACE -Wno-attributes -Wno-unknown-pragmas)
endif()

# Flags that every translation unit and link of a build must share.
add_library(qvui_flags INTERFACE)
if(QVUI_SANITIZE)
  target_compile_options(qvui_flags INTERFACE
    -fsanitize=${QVUI_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(qvui_flags INTERFACE -fsanitize=${QVUI_SANITIZE})
endif()
target_compile_options(qvui_flags INTERFACE -fvisibility=hidden -fvisibility-inlines-hidden)
if(WIN32)
  # Every platform name is the multibyte one, and COMCTL32's and GDI+'s newest declarations are visible.
  target_compile_definitions(qvui_flags INTERFACE
    WIN32_LEAN_AND_MEAN NOMINMAX WINVER=0x0601 _WIN32_WINNT=0x0601 STRICT)
endif()

set_property(GLOBAL PROPERTY QVUI_ROOMS "")

# qvui_room(NAME SOURCES files... [USES targets...])
# One room of the library: a static library that the shared library takes whole.
# Paths are relative to the calling CMakeLists.txt.
function(qvui_room name)
  cmake_parse_arguments(ROOM "" "" "SOURCES;USES" ${ARGN})
  add_library(qvui_${name} STATIC ${ROOM_SOURCES})
  target_include_directories(qvui_${name} PUBLIC
    ${PROJECT_SOURCE_DIR}/include ${PROJECT_SOURCE_DIR}/platform/include
    PRIVATE ${PROJECT_SOURCE_DIR}/src)
  target_compile_definitions(qvui_${name} PRIVATE QVUI_BUILDING)
  target_link_libraries(qvui_${name} PUBLIC qvui_flags ${ROOM_USES} PRIVATE qvui_warnings)
  set_property(GLOBAL APPEND PROPERTY QVUI_ROOMS qvui_${name})
endfunction()

# qvui_test(ROOM SOURCES files... [USES targets...])
# One test program per room, linked with the library's rooms directly, so that it reaches what the shared
# library does not export. Its working directory holds tests/<room>/data.
function(qvui_test room)
  cmake_parse_arguments(TEST "" "" "SOURCES;USES" ${ARGN})
  add_executable(test_${room} ${TEST_SOURCES})
  target_compile_definitions(test_${room} PRIVATE QVUI_STATIC
    QVUI_TEST_DATA="${PROJECT_SOURCE_DIR}/tests")
  target_include_directories(test_${room} PRIVATE ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR}/platform
    ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(test_${room} PRIVATE qvui_flags qvui_warnings qvui_test_support ${TEST_USES} qvui_gtest)
  set_property(GLOBAL APPEND PROPERTY QVUI_TEST_PROGRAMS test_${room})
  add_test(NAME ${room} COMMAND test_${room})
endfunction()
