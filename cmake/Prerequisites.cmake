# Included before project(): one line on what a fresh machine lacks, and how to get it.

if(CMAKE_HOST_UNIX AND NOT CMAKE_CXX_COMPILER AND NOT CMAKE_TOOLCHAIN_FILE AND NOT DEFINED ENV{CXX})
  find_program(zylCompiler NAMES c++ g++ clang++ NO_CACHE)
  if(NOT zylCompiler)
    message(FATAL_ERROR "No C++ compiler found. Install one (Debian: apt-get install g++), or name "
      "yours with -DCMAKE_CXX_COMPILER=<path>.")
  endif()
endif()
if(CMAKE_GENERATOR STREQUAL "Unix Makefiles" AND NOT CMAKE_MAKE_PROGRAM)
  find_program(zylMake NAMES gmake make NO_CACHE)
  if(NOT zylMake)
    message(FATAL_ERROR "No make found. Install it (Debian: apt-get install make), or use Ninja: "
      "-G Ninja.")
  endif()
endif()
