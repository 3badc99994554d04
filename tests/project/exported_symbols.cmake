# Fails if the built library exports anything but the listed symbols, or lacks one of them.
#
#   cmake -DLIBRARY=<file> -DLIST=<file> -DNM=<tool> [-DWRITE=<file>] -P exported_symbols.cmake
#
# WRITE stores what was found, for a list to be reviewed and committed.

cmake_minimum_required(VERSION 3.25)

execute_process(COMMAND ${NM} --dynamic --defined-only --demangle --format=posix ${LIBRARY}
                OUTPUT_VARIABLE output RESULT_VARIABLE status)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "cannot read ${LIBRARY}")
endif()

# Brackets would glue list elements together.
string(REPLACE "[" "<:" output "${output}")
string(REPLACE "]" ":>" output "${output}")
string(REPLACE "\n" ";" lines "${output}")
set(found "")
foreach(line IN LISTS lines)
  string(REGEX REPLACE " [A-Za-z]( [0-9a-f]+)*$" "" symbol "${line}")
  # The standard library's templates are made visible by its own headers.
  if(NOT symbol STREQUAL "" AND NOT symbol MATCHES "^(void |bool )?(std|__gnu_cxx)::")
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
