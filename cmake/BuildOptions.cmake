# Compiler flags that every target of the project shares.

# The exact predicates rest on IEEE arithmetic in the order written.
string(TOUPPER "${CMAKE_BUILD_TYPE}" zylBuildType)
get_directory_property(zylHostOptions COMPILE_OPTIONS)
string(JOIN " " zylFlags ${CMAKE_CXX_FLAGS} ${CMAKE_CXX_FLAGS_${zylBuildType}} ${zylHostOptions})
if(zylFlags MATCHES
   "-Ofast|-ffast-math|-f(unsafe|associative|reciprocal)-math[a-z-]*|-ffinite-math-only")
  message(FATAL_ERROR "${CMAKE_MATCH_0} would make exact signs wrong. Take it out of CXXFLAGS, "
    "CMAKE_CXX_FLAGS or add_compile_options, and configure in a new folder.")
endif()

add_library(zylGeometryBuildOptions INTERFACE)
target_compile_features(zylGeometryBuildOptions INTERFACE cxx_std_17)

# A fused multiply-add or a wider register would change the rounding that the exact predicates
# account for operation by operation.
target_compile_options(zylGeometryBuildOptions INTERFACE -ffp-contract=off)
if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86|AMD64|i.86")
  # GCC 12 at -O3 forms vfmaddsub all the same where -march lets it.
  target_compile_options(zylGeometryBuildOptions INTERFACE -mno-fma -mno-avx512f)
endif()
if(CMAKE_SIZEOF_VOID_P EQUAL 4 AND CMAKE_SYSTEM_PROCESSOR MATCHES "86|AMD64")
  target_compile_options(zylGeometryBuildOptions INTERFACE -msse2)
  # The x87, for those who ask for it, is told to round to double as it goes: see exactinit.
  if(NOT CMAKE_CXX_FLAGS MATCHES "-mfpmath=")
    target_compile_options(zylGeometryBuildOptions INTERFACE -mfpmath=sse)
  endif()
endif()

target_compile_options(zylGeometryBuildOptions INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wold-style-cast -Wcast-align -Wcast-qual
  -Wnon-virtual-dtor -Woverloaded-virtual -Wformat=2 -Wundef -Wredundant-decls -Wextra-semi)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(zylGeometryBuildOptions INTERFACE
    -Wduplicated-cond -Wduplicated-branches -Wlogical-op -Wdouble-promotion)
  if(CMAKE_SIZEOF_VOID_P EQUAL 8)  # in 32 bits a cast from size_t may well do nothing
    target_compile_options(zylGeometryBuildOptions INTERFACE -Wuseless-cast)
  endif()
else()
  # GCC counts an int template argument that is an array bound among the conversions of sign.
  target_compile_options(zylGeometryBuildOptions INTERFACE -Wsign-conversion)
endif()
if(ZYL_GEOMETRY_WARNINGS_AS_ERRORS)
  target_compile_options(zylGeometryBuildOptions INTERFACE -Werror)
endif()
