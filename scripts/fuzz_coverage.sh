#!/usr/bin/env bash
# Tells which part of the library's source the fuzz targets reach with the inputs kept so far: those
# in tests/data/fuzz and those that scripts/fuzz.sh left below $FUZZ_DIR, or build/fuzz/work.
#
#   scripts/fuzz_coverage.sh [target ...]
#
# Prints regions, functions and lines covered in each file below src and include; the marked source is
# in build/coverage/html.
set -eu
cd "$(dirname "$0")/.."

targets=${*:-predicates edges ring triangulation circle polyline voxelation primitives}
work=${FUZZ_DIR:-$PWD/build/fuzz/work}
build=build/coverage

scripts/install_packages.sh test check
cmake -S . -B "$build" -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=None \
  -DCMAKE_CXX_FLAGS="-O1 -fprofile-instr-generate -fcoverage-mapping" \
  -DZYL_GEOMETRY_BUILD_EXAMPLES=OFF >/dev/null

programs=()
for target in $targets; do
  programs+=("replay_$target")
done
cmake --build "$build" --target "${programs[@]}"

rm -f "$build"/*.profraw
objects=()
for target in $targets; do
  program=$build/fuzz/replay_$target
  folders=("tests/data/fuzz/$target")
  [ ! -d "$work/corpus/$target" ] || folders+=("$work/corpus/$target")
  LLVM_PROFILE_FILE=$build/$target.profraw "$program" "${folders[@]}" | tail -n 1 |
    sed "s/^/$target: /"
  objects+=(-object "$program")
done

llvm-profdata merge -o "$build/fuzz.profdata" "$build"/*.profraw
coverage() {
  llvm-cov "$1" "${objects[@]:1}" -instr-profile="$build/fuzz.profdata" "${@:2}" \
    -ignore-filename-regex='(^|/)(tests/support|fuzz)/[^/]*$'
}
coverage show -format=html -output-dir="$build/html" >/dev/null
coverage report
