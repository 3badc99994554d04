# Fails unless the gallery draws, byte for byte, the pictures that the documentation shows, and says
# so if it cannot write them. Whoever changes a picture looks at it before it is committed.
#
#   cmake -DPROGRAM=<gallery> -DSCRATCH=<folder> -DSHOWN=<folder> -P gallery.cmake

cmake_minimum_required(VERSION 3.25)

file(REMOVE_RECURSE ${SCRATCH})
execute_process(COMMAND ${PROGRAM} ${SCRATCH} COMMAND_ERROR_IS_FATAL ANY)
file(GLOB drawn RELATIVE ${SCRATCH} ${SCRATCH}/*)
file(GLOB shown RELATIVE ${SHOWN} ${SHOWN}/*)
if(NOT drawn STREQUAL shown OR NOT drawn)
  message(FATAL_ERROR "drawn: ${drawn}\nshown: ${shown}")
endif()
foreach(picture IN LISTS drawn)
  file(SHA256 ${SCRATCH}/${picture} ofDrawn)
  file(SHA256 ${SHOWN}/${picture} ofShown)
  if(NOT ofDrawn STREQUAL ofShown)
    message(SEND_ERROR
      "${picture} as it is shown is not what is drawn: build the target gallery_pictures")
  endif()
endforeach()

foreach(arguments /dev/null/nowhere "")
  execute_process(COMMAND ${PROGRAM} ${arguments} RESULT_VARIABLE status ERROR_QUIET)
  if(NOT status EQUAL 1)
    message(SEND_ERROR "ended with ${status} where it cannot write: \"${arguments}\"")
  endif()
endforeach()
