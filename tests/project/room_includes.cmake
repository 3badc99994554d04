# Fails if a file includes what its room may not know.
#
#   vector <- matrix <- primitives <- polyline, voxel      predicates <- trimake <- polyline
#
# Sources are held to the table below by their folder; public headers by the room they belong to.
# polyline reaches trimake through polygon.h and location.h only, and from the polygon set alone.

cmake_minimum_required(VERSION 3.25)

set(headers_vector coord.h direction.h)
set(headers_matrix square_matrix.h matrix3.h matrix4.h transformation.h)
set(headers_primitives extent.h extent2d.h plane.h segment.h triangle.h ellipsoid.h
    enclosing_circle.h)
set(headers_predicates geom.h)
set(headers_polyline polyline3d.h)
set(headers_voxel voxelation.h)
set(headers_trimake)

set(knows_vector vector)
set(knows_matrix vector matrix)
set(knows_primitives vector matrix primitives)
set(knows_polyline vector matrix primitives polyline)
set(knows_voxel vector matrix primitives voxel)
set(knows_predicates vector matrix primitives predicates)
set(knows_trimake trimake)

# Uses that the table alone would refuse, as "<file>|<included file>".
set(granted
    # A box fills two polylines, and a circle may be asked of one.
    "src/primitives/extent.cpp|zyl/geometry/polyline3d.h"
    "src/primitives/enclosing_circle.cpp|zyl/geometry/polyline3d.h"
    # A triangle's queries rest on the exact tests.
    "src/primitives/triangle.cpp|zyl/geometry/geom.h"
    # The polygon set is the only door to the engine.
    "src/polyline/polygon_set.cpp|trimake/polygon.h"
    "src/polyline/polygon_set.cpp|trimake/location.h")

set(faults "")

function(check file room line)
  if(line MATCHES "#include \"zyl/geometry/([^\"]+)\"")
    set(header ${CMAKE_MATCH_1})
    set(included "zyl/geometry/${header}")
    set(target "")
    foreach(candidate vector matrix primitives predicates polyline voxel)
      if(header IN_LIST headers_${candidate})
        set(target ${candidate})
      endif()
    endforeach()
    if(header STREQUAL "export.h" OR header STREQUAL "version.h")
      return()
    endif()
    if(target STREQUAL "")
      set(target "(no room)")
    endif()
  elseif(line MATCHES "#include \"(([a-z]+)/[^\"]+)\"")
    set(included ${CMAKE_MATCH_1})
    set(target ${CMAKE_MATCH_2})
    if(included STREQUAL "predicates/predicates.h" AND room MATCHES "^(trimake|predicates)$")
      return()
    endif()
  else()
    return()
  endif()
  if(target IN_LIST knows_${room} OR "${file}|${included}" IN_LIST granted)
    return()
  endif()
  set(faults "${faults}${file} (room ${room}) includes ${included} (room ${target})\n" PARENT_SCOPE)
endfunction()

file(GLOB_RECURSE files RELATIVE ${ROOT} ${ROOT}/src/*.h ${ROOT}/src/*.cpp
     ${ROOT}/include/zyl/geometry/*.h)
list(LENGTH files count)
if(count LESS 5)
  message(FATAL_ERROR "only ${count} files found under ${ROOT}: nothing was checked")
endif()

foreach(file ${files})
  get_filename_component(name ${file} NAME)
  if(file MATCHES "^src/([a-z]+)/")
    set(room ${CMAKE_MATCH_1})
  elseif(name MATCHES "^(export|version|geometry)\\.h$")
    continue()
  else()
    set(room "")
    foreach(candidate vector matrix primitives predicates polyline voxel)
      if(name IN_LIST headers_${candidate})
        set(room ${candidate})
      endif()
    endforeach()
    if(room STREQUAL "")
      string(APPEND faults "${file} belongs to no room\n")
      continue()
    endif()
  endif()
  file(STRINGS ${ROOT}/${file} includes REGEX "^#include \"")
  foreach(line IN LISTS includes)
    check(${file} ${room} "${line}")
  endforeach()
endforeach()

# The predicates themselves know nothing but the standard library.
foreach(file src/predicates/predicates.h src/predicates/predicates.cpp)
  if(EXISTS ${ROOT}/${file})
    file(STRINGS ${ROOT}/${file} includes REGEX "^#include \"")
    foreach(line IN LISTS includes)
      if(NOT line MATCHES "predicates/")
        string(APPEND faults "${file} has ${line}\n")
      endif()
    endforeach()
  endif()
endforeach()

if(NOT faults STREQUAL "")
  message(FATAL_ERROR "includes against the order of the rooms:\n${faults}")
endif()
