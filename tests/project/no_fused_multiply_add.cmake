# Fails if the built library contains a fused multiply-add: it rounds once where the exact predicates
# count on two roundings.

cmake_minimum_required(VERSION 3.25)

execute_process(COMMAND ${OBJDUMP} -d --no-show-raw-insn ${LIBRARY}
                OUTPUT_VARIABLE code RESULT_VARIABLE status)
if(NOT status EQUAL 0 OR NOT code MATCHES "mulsd")
  message(FATAL_ERROR "cannot disassemble ${LIBRARY}")
endif()
if(code MATCHES "[^\n]*vfn?m(add|sub)[^\n]*")
  message(FATAL_ERROR "fused multiply-add in ${LIBRARY}: ${CMAKE_MATCH_0}")
endif()
