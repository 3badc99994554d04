# Fails if a comment or a page names a file of the project that is not there.
#
# A name counts if it has one of the endings below. It is looked for as it stands, below the folder
# of the file that names it, and by its last component anywhere in the tree.

cmake_minimum_required(VERSION 3.25)

file(GLOB_RECURSE everything RELATIVE ${ROOT} ${ROOT}/include/* ${ROOT}/src/* ${ROOT}/tests/*
     ${ROOT}/examples/* ${ROOT}/benchmarks/* ${ROOT}/fuzz/* ${ROOT}/tools/* ${ROOT}/scripts/*
     ${ROOT}/docs/* ${ROOT}/cmake/* ${ROOT}/*.md ${ROOT}/CMakeLists.txt ${ROOT}/CMakePresets.json)
list(FILTER everything EXCLUDE REGEX "^build")

set(names "")
foreach(file IN LISTS everything)
  get_filename_component(name ${file} NAME)
  list(APPEND names ${name})
endforeach()

# Made by a build or by the reader.
set(elsewhere gmp.h zylGeometry.pc zylGeometryConfig.cmake zylGeometryTargets.cmake
    zylGeometryConfigVersion.cmake main.cpp first.cpp compile_commands.json)

set(checked 0)
set(faults "")
foreach(file IN LISTS everything)
  if(NOT file MATCHES "\\.(h|cpp|md|sh|txt|cmake)$" OR file MATCHES "corpus")
    continue()
  endif()
  file(STRINGS ${ROOT}/${file} lines REGEX "(//|#|^[^ ]|\\|)" ENCODING UTF-8)
  foreach(line IN LISTS lines)
    if(NOT file MATCHES "\\.md$")
      if(NOT line MATCHES "(//|# )(.*)")
        continue()
      endif()
      set(line "${CMAKE_MATCH_2}")
    endif()
    string(REGEX REPLACE "[][;]" " " line "${line}")  # would change what a list element is
    string(REGEX MATCHALL "[A-Za-z0-9_/]+\\.(h|cpp|cmake|sh|md)([^A-Za-z0-9_(]|$)" found "${line}")
    foreach(mention IN LISTS found)
      string(REGEX REPLACE "[^A-Za-z0-9_]$" "" mention "${mention}")
      get_filename_component(name ${mention} NAME)
      math(EXPR checked "${checked} + 1")
      if(NOT name IN_LIST names AND NOT name IN_LIST elsewhere)
        string(APPEND faults "  ${file} names ${mention}\n")
      endif()
    endforeach()
  endforeach()
endforeach()

if(checked LESS 10)
  message(FATAL_ERROR "only ${checked} names found: nothing was checked")
endif()
if(NOT faults STREQUAL "")
  message(FATAL_ERROR "named, but not there:\n${faults}")
endif()
