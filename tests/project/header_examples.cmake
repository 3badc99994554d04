# Turns the examples in the headers into one program: each a function, each value that a comment
# gives compared with what the expression before it comes to.
#
#   cmake -DFOLDER=<folder of headers> -DOUT=<source file> -P header_examples.cmake
#
# A line is taken for an expression with its value if it reads `expression;  // value`, the value
# being a number, (x, y), (x, y, z), true or false; a colon and a remark may follow.

cmake_minimum_required(VERSION 3.25)

set(functions "")
set(calls "")
file(GLOB headers ${FOLDER}/*.h)
foreach(header IN LISTS headers)
  get_filename_component(name ${header} NAME_WE)
  set(body "")
  set(values 0)
  file(STRINGS ${header} lines ENCODING UTF-8 REGEX "^ *///     ")
  foreach(line IN LISTS lines)
    string(REGEX REPLACE "^ *///     " "" code "${line}")
    if(code MATCHES "^([^/]*[^ /]);  +// (true|false|-?[0-9.]+|\\([^)]*\\))(:.*)?$")
      string(APPEND body "  Expect(\"${CMAKE_MATCH_1}\", Text(${CMAKE_MATCH_1}), "
                         "\"${CMAKE_MATCH_2}\");\n")
      math(EXPR values "${values} + 1")
    else()
      string(APPEND body "  ${code}\n")
    endif()
  endforeach()

  file(STRINGS ${header} classes REGEX "^(class|struct) ZYL_GEOMETRY_API ")
  if(values EQUAL 0 AND (lines OR classes))
    message(FATAL_ERROR "${header} has no example that shows a value")
  endif()
  if(lines)
    string(APPEND functions "void ExampleOf_${name}() {\n${body}}\n\n")
    string(APPEND calls "  ExampleOf_${name}();\n")
  endif()
endforeach()

file(WRITE ${OUT} "// Made from the examples in the headers.
#include <cstdio>
#include <cstdlib>
#include <set>
#include <string>
#include <vector>

#include \"zyl/geometry/geometry.h\"

using namespace zyl::geometry;

namespace {

std::string Text(bool value) { return value ? \"true\" : \"false\"; }
std::string Text(double value) {
  char text[32];
  std::snprintf(text, sizeof text, \"%g\", value);
  return text;
}
std::string Text(const Coord2D& p) { return '(' + Text(p.x) + \", \" + Text(p.y) + ')'; }
std::string Text(const Coord3D& p) {
  return '(' + Text(p.x) + \", \" + Text(p.y) + \", \" + Text(p.z) + ')';
}
std::string Text(const Direction& d) { return Text(Coord3D(d.x, d.y, d.z)); }

void Expect(const char* expression, const std::string& actual, const std::string& shown) {
  if (actual != shown) {
    std::fprintf(stderr, \"%s is %s, not %s\\n\", expression, actual.c_str(), shown.c_str());
    std::exit(1);
  }
}

${functions}}  // namespace

int main() {
  geom_Init();
${calls}}
")
