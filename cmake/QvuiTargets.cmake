# The functions that every room's CMakeLists.txt is written with.

option(QVUI_WARNINGS_AS_ERRORS "Treat warnings as errors" OFF)
option(QVUI_PRECOMPILE "Precompile the headers that most sources include" ON)
option(QVUI_COVERAGE "Count the lines of the library and the tools that run" OFF)
set(QVUI_SANITIZE "" CACHE STRING "Sanitizers, as for -fsanitize=")
set(QVUI_PROGRAM_FLAGS "" CACHE STRING "Compiler flags of tests, tools and examples, after those of the build type")

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
  # mingw's headers spell calling conventions in ways that the first two object to; the third misjudges the
  # standard library's strings, once they are precompiled.
  target_compile_options(qvui_warnings INTERFACE -Wno-attributes -Wno-unknown-pragmas -Wno-stringop-overread)
endif()

# Flags that every translation unit and link of a build must share.
add_library(qvui_flags INTERFACE)
if(QVUI_SANITIZE)
  target_compile_options(qvui_flags INTERFACE
    -fsanitize=${QVUI_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(qvui_flags INTERFACE -fsanitize=${QVUI_SANITIZE})
endif()
if(QVUI_COVERAGE)
  target_link_options(qvui_flags INTERFACE --coverage)
endif()
target_compile_options(qvui_flags INTERFACE -fvisibility=hidden -fvisibility-inlines-hidden)
if(CMAKE_SIZEOF_VOID_P EQUAL 4 AND CMAKE_SYSTEM_PROCESSOR MATCHES "^(i.86|x86)")
  # Double precision as on 64 bits, which the x87 unit does not keep to. Windows calls back with a stack that
  # is aligned to four bytes only.
  target_compile_options(qvui_flags INTERFACE -msse2 -mfpmath=sse -mstackrealign)
endif()
if(WIN32)
  # Every platform name is the multibyte one, and COMCTL32's and GDI+'s newest declarations are visible.
  target_compile_definitions(qvui_flags INTERFACE
    WIN32_LEAN_AND_MEAN NOMINMAX WINVER=0x0601 _WIN32_WINNT=0x0601 STRICT)
endif()

set_property(GLOBAL PROPERTY QVUI_ROOMS "")

# qvui_precompile(TARGET headers...), qvui_precompile(TARGET REUSE_FROM other)
# Precompiles headers for a target. The sources still include what they use: other builds compile without.
function(qvui_precompile target)
  if(NOT QVUI_PRECOMPILE)
    return()
  endif()
  if(ARGV1 STREQUAL "REUSE_FROM")
    target_precompile_headers(${target} REUSE_FROM ${ARGV2})
  else()
    target_precompile_headers(${target} PRIVATE ${ARGN})
  endif()
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # Lets ccache see what a precompiled header stands for.
    target_compile_options(${target} PRIVATE -fpch-preprocess)
  endif()
endfunction()

# qvui_count_lines(TARGET)
# Counts which lines of a library of ours run, in a build for coverage.
function(qvui_count_lines target)
  if(QVUI_COVERAGE)
    target_compile_options(${target} PRIVATE --coverage)
  endif()
endfunction()

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
  qvui_precompile(qvui_${name} REUSE_FROM qvui_platform)
  qvui_count_lines(qvui_${name})
  set_property(GLOBAL APPEND PROPERTY QVUI_ROOMS qvui_${name})
endfunction()

# qvui_program_options(TARGET)
# Warnings, and the flags of what need not run as fast as the library.
function(qvui_program_options target)
  separate_arguments(flags UNIX_COMMAND "${QVUI_PROGRAM_FLAGS}")
  target_compile_options(${target} PRIVATE ${flags})
  target_link_libraries(${target} PRIVATE qvui_warnings)
endfunction()

# qvui_test_options(TARGET PRECOMPILED)
# The same for a target that tests are made of, with the precompiled headers of another one or its own.
function(qvui_test_options target precompiled)
  qvui_program_options(${target})
  # Libraries and programs share precompiled headers only when they are compiled alike.
  set_target_properties(${target} PROPERTIES POSITION_INDEPENDENT_CODE OFF)
  if(NOT target STREQUAL precompiled)
    qvui_precompile(${target} REUSE_FROM ${precompiled})
  endif()
endfunction()

# qvui_test(ROOM SOURCES files... [USES targets...])
# One test program per room, linked with the library's rooms directly, so that it reaches what the shared
# library does not export. Its working directory holds tests/<room>/data.
function(qvui_test room)
  cmake_parse_arguments(TEST "" "" "SOURCES;USES" ${ARGN})
  add_executable(test_${room} ${TEST_SOURCES})
  target_compile_definitions(test_${room} PRIVATE QVUI_STATIC)
  target_include_directories(test_${room} PRIVATE ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR}/platform
    ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(test_${room} PRIVATE qvui_flags qvui_test_support ${TEST_USES} qvui_gtest)
  if("qvui_control_support" IN_LIST TEST_USES)
    qvui_test_options(test_${room} qvui_control_support)
  else()
    qvui_test_options(test_${room} qvui_test_support)
  endif()
  set_property(GLOBAL APPEND PROPERTY QVUI_TEST_PROGRAMS test_${room})
  add_test(NAME ${room} COMMAND test_${room})
endfunction()
