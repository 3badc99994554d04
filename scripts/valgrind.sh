#!/usr/bin/env bash
# One long test of polygons and the engine under valgrind's memcheck: reads of uninitialised memory,
# which no sanitizer of the other builds sees, stray accesses and leaks; in the library as it is
# shipped. Half a minute.
set -eu
cd "$(dirname "$0")/.."

scripts/install_packages.sh test check
cmake --preset release
cmake --build --preset release --target test_polyline
program=build/release/tests/polyline/test_polyline
test=AgreesWithTheEvenOddRuleOnTangledRings
filter=--gtest_filter=IsPointInside.$test
"$program" "$filter" --gtest_list_tests | grep -q "$test" || {
  echo "valgrind.sh: there is no test $test" >&2
  exit 1
}
valgrind --error-exitcode=1 --leak-check=full --errors-for-leak-kinds=definite,possible \
  "$program" "$filter"
