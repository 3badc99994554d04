# Turns the code blocks of a page into one program: each block a function, every CHECK in it fatal.
#
#   cmake -DPAGE=<page> -DOUT=<source file> -P page_blocks.cmake

cmake_minimum_required(VERSION 3.25)

file(READ ${PAGE} page)
string(REPLACE ";" "<semicolon>" page "${page}")
string(REPLACE "[" "<open>" page "${page}")
string(REPLACE "]" "<close>" page "${page}")
string(REGEX MATCHALL "```cpp\n[^`]*```" blocks "${page}")
list(LENGTH blocks count)
if(count LESS 20)
  message(FATAL_ERROR "only ${count} blocks found in ${PAGE}")
endif()

set(functions "")
set(calls "")
set(number 0)
foreach(block IN LISTS blocks)
  math(EXPR number "${number} + 1")
  string(REGEX REPLACE "^```cpp\n|```$" "" body "${block}")
  string(APPEND functions "void Block${number}() {\n${body}}\n\n")
  string(APPEND calls "  Block${number}();\n")
endforeach()

set(program "// Made from ${PAGE}.
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <set>
#include <vector>

#include \"zyl/geometry/geometry.h\"

#define CHECK(...)                                                    \\
  do {                                                                \\
    if (!(__VA_ARGS__)) {                                             \\
      std::fprintf(stderr, \"%s: %s is not so\\n\", __func__, #__VA_ARGS__); \\
      std::exit(1);                                                   \\
    }                                                                 \\
  } while (false)

using namespace zyl::geometry;

${functions}int main() {
  geom_Init();
${calls}}
")
string(REPLACE "<semicolon>" ";" program "${program}")
string(REPLACE "<open>" "[" program "${program}")
string(REPLACE "<close>" "]" program "${program}")
file(WRITE ${OUT} "${program}")
