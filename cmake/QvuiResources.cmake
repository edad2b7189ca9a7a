# Resources of modules and of executables, from the same .rc files on both targets.
#
# The scripts are compiled by windres; on native its package (binutils-mingw-w64-x86-64) is all that is needed, no
# cross compiler. A script may use the preprocessor but no header of the platform: numbers and named types only.
# The files that it names are found beside it, and are dependencies of the build.
#
# qvui_add_resource_module(name file.rc)
#   Builds name.dll in the directory of the programs: a module without code, which LoadLibraryA opens on both targets.
# qvui_add_resources(target file.rc)
#   Gives an executable resources of its own, found through GetModuleHandleA(nullptr). On windows they are linked in.
#   On native the same resource module is built and put into the executable as read-only data, so that nothing can be
#   parted from it, and is registered when the program starts.

set(QVUI_RESOURCE_ARCH x86_64)
if(WIN32)
  set(QVUI_RESOURCE_ARCH ${QVUI_MINGW_ARCH})
endif()
find_program(QVUI_WINDRES ${QVUI_RESOURCE_ARCH}-w64-mingw32-windres)
find_program(QVUI_RESOURCE_LINKER ${QVUI_RESOURCE_ARCH}-w64-mingw32-ld)

# Sets `result` to the object file that a script is compiled to.
function(qvui_compile_resources name script result)
  if(NOT QVUI_WINDRES OR NOT QVUI_RESOURCE_LINKER)
    message(FATAL_ERROR "${script} needs windres (package binutils-mingw-w64-x86-64)")
  endif()
  cmake_path(ABSOLUTE_PATH script)
  cmake_path(GET script PARENT_PATH folder)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${script})
  set(files "")
  file(STRINGS ${script} lines REGEX "\"[^\"]+\"")
  foreach(line ${lines})
    string(REGEX MATCH "\"([^\"]+)\"" match "${line}")
    if(EXISTS ${folder}/${CMAKE_MATCH_1})
      list(APPEND files ${folder}/${CMAKE_MATCH_1})
    endif()
  endforeach()
  set(object ${CMAKE_CURRENT_BINARY_DIR}/${name}.res.o)
  add_custom_command(OUTPUT ${object}
    COMMAND ${QVUI_WINDRES} --preprocessor=${CMAKE_CXX_COMPILER} --preprocessor-arg=-E --preprocessor-arg=-xc++
      --preprocessor-arg=-DRC_INVOKED -I ${folder} -O coff ${script} ${object}
    DEPENDS ${script} ${files}
    COMMENT "Compiling resources ${name}"
    VERBATIM)
  set(${result} ${object} PARENT_SCOPE)
endfunction()

# Links the object file of a script to a module without code.
function(qvui_link_resource_module object module)
  add_custom_command(OUTPUT ${module}
    COMMAND ${QVUI_RESOURCE_LINKER} -shared --entry=0 --no-insert-timestamp -o ${module} ${object}
    DEPENDS ${object}
    VERBATIM)
endfunction()

function(qvui_add_resource_module name script)
  qvui_compile_resources(${name} ${script} object)
  set(module ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${name}.dll)
  qvui_link_resource_module(${object} ${module})
  add_custom_target(${name} ALL DEPENDS ${module})
endfunction()

function(qvui_add_resources target script)
  qvui_compile_resources(${target}_resources ${script} object)
  if(WIN32)
    set_source_files_properties(${object} PROPERTIES EXTERNAL_OBJECT TRUE GENERATED TRUE)
    target_sources(${target} PRIVATE ${object})
    return()
  endif()
  set(QVUI_RESOURCE_MODULE ${CMAKE_CURRENT_BINARY_DIR}/${target}_resources.dll)
  qvui_link_resource_module(${object} ${QVUI_RESOURCE_MODULE})
  set(source ${CMAKE_CURRENT_BINARY_DIR}/${target}_resources.cpp)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/executable_resources.cpp.in ${source} @ONLY)
  set_source_files_properties(${source} PROPERTIES OBJECT_DEPENDS ${QVUI_RESOURCE_MODULE})
  target_sources(${target} PRIVATE ${source})
endfunction()
