# Fails unless every picture of the documentation is well-formed and shows something.
#
#   cmake -DFOLDER=<pictures> -DXMLLINT=<program> -P pictures.cmake

cmake_minimum_required(VERSION 3.25)

file(GLOB_RECURSE pictures ${FOLDER}/*.svg)
if(NOT pictures)
  message(FATAL_ERROR "there are no pictures in ${FOLDER}")
endif()
foreach(picture IN LISTS pictures)
  execute_process(COMMAND ${XMLLINT} --xpath "/*/*" ${picture}
                  OUTPUT_QUIET ERROR_VARIABLE error RESULT_VARIABLE status)
  if(NOT status EQUAL 0)
    message(SEND_ERROR "${picture}: ${error}")
  endif()
endforeach()
