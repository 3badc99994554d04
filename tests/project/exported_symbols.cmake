# Fails if the built library exports anything but the listed symbols, or lacks one of them.
#
#   cmake -DLIBRARY=<.so> -DLIST=<file> -DNM=<tool> [-DWRITE=<file>] -P exported_symbols.cmake
#   cmake -DLIBRARY=<.dll> -DLIST=<file> -DOBJDUMP=<tool> -DCXXFILT=<tool> -P exported_symbols.cmake
#
# WRITE stores what was found, for a list to be reviewed and committed. The list is that of 64-bit
# Linux; what differs by right on 32-bit Windows is told apart below.

cmake_minimum_required(VERSION 3.25)

function(run result)
  execute_process(COMMAND ${ARGN} OUTPUT_VARIABLE output RESULT_VARIABLE status)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "cannot read ${LIBRARY}")
  endif()
  # Brackets would glue list elements together.
  string(REPLACE "[" "<:" output "${output}")
  string(REPLACE "]" ":>" output "${output}")
  set(${result} "${output}" PARENT_SCOPE)
endfunction()

if(DEFINED OBJDUMP)
  run(output ${OBJDUMP} --private-headers ${LIBRARY})
  string(REGEX REPLACE ".*<:Ordinal/Name Pointer:> Table" "" output "${output}")
  string(REGEX MATCHALL "\n\t<: *[0-9]+:> [^\n]+" lines "${output}")
  list(TRANSFORM lines REPLACE "\n\t<: *[0-9]+:> " "")
  run(output ${CXXFILT} --no-strip-underscores ${lines})
  # The 64-bit integer of the interface is `long` where that has 64 bits; no other one is used.
  string(REPLACE "long long" "long" output "${output}")
else()
  run(output ${NM} --dynamic --defined-only --demangle --format=posix ${LIBRARY})
  string(REGEX REPLACE " [A-Za-z]( [0-9a-f]+)*\n" "\n" output "${output}")
endif()
string(REPLACE "\n" ";" lines "${output}")
set(found "")
foreach(symbol IN LISTS lines)
  if(NOT symbol STREQUAL "")
    list(APPEND found "${symbol}")
  endif()
endforeach()
list(SORT found)
list(REMOVE_DUPLICATES found)

if(DEFINED WRITE)
  string(REPLACE ";" "\n" text "${found}")
  string(REPLACE "<:" "[" text "${text}")
  string(REPLACE ":>" "]" text "${text}")
  file(WRITE ${WRITE} "${text}\n")
  return()
endif()

file(READ ${LIST} text)
string(REPLACE "[" "<:" text "${text}")
string(REPLACE "]" ":>" text "${text}")
string(REGEX REPLACE "\n$" "" text "${text}")
string(REPLACE "\n" ";" wanted "${text}")
if(DEFINED OBJDUMP)
  # There, types are told apart by the text of their names. Every module has its own copy of those,
  # and of what describes a type without a virtual function.
  list(FILTER wanted EXCLUDE REGEX "^typeinfo (name )?for .*Exception$|^typeinfo name for ")
endif()

set(faults "")
foreach(symbol IN LISTS found)
  if(NOT symbol IN_LIST wanted)
    string(APPEND faults "  exported, but not part of the interface: ${symbol}\n")
  endif()
endforeach()
foreach(symbol IN LISTS wanted)
  if(NOT symbol IN_LIST found)
    string(APPEND faults "  part of the interface, but not exported: ${symbol}\n")
  endif()
endforeach()
if(NOT faults STREQUAL "")
  message(FATAL_ERROR "${LIBRARY}:\n${faults}")
endif()
