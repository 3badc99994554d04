# cmake -DSTATUS=<n> -DPATTERN=<regex> -P expect_end.cmake -- <program> <argument>...
# Fails unless the program ends with that status and what it prints matches the pattern.

set(command "")
set(passed FALSE)
math(EXPR last "${CMAKE_ARGC} - 1")
foreach(i RANGE ${last})
  if(passed)
    list(APPEND command "${CMAKE_ARGV${i}}")
  elseif(CMAKE_ARGV${i} STREQUAL "--")
    set(passed TRUE)
  endif()
endforeach()

execute_process(COMMAND ${command}
  RESULT_VARIABLE status OUTPUT_VARIABLE printed ERROR_VARIABLE printed)
if(NOT status STREQUAL STATUS)
  message(FATAL_ERROR "ended with ${status} instead of ${STATUS}, and printed\n${printed}")
endif()
if(NOT printed MATCHES "${PATTERN}")
  message(FATAL_ERROR "nothing like \"${PATTERN}\" in\n${printed}")
endif()
