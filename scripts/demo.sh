#!/usr/bin/env bash
# Installs what is missing, builds the library and the survey program, and runs the program on the
# survey that it ships with. Safe to run again: what is there already is not done twice.
set -eu
cd "$(dirname "$0")/.."

fail() {
  echo "demo.sh: $*" >&2
  exit 1
}

build=build/demo
picture=$build/survey.svg

scripts/install_packages.sh build

echo "== Configure and build in $build"
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=Release -DZYL_GEOMETRY_BUILD_TESTS=OFF ||
  fail "could not configure the build"
cmake --build "$build" --target survey --parallel "$(nproc)" || fail "could not build"

echo "== Run $build/examples/survey/survey"
"$build/examples/survey/survey" --svg "$picture" || fail "the survey program failed"

echo "== The map is in $PWD/$picture"
