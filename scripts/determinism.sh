#!/usr/bin/env bash
# Builds the digest program with different compilers, optimisation levels, word sizes, and with and
# without oneTBB, runs it, and fails unless all print the same.
set -eu
cd "$(dirname "$0")/.."

scripts/install_packages.sh test check

out=build/determinism
mkdir -p "$out"

# digest <name> <compiler> <flags> <oneTBB: ON or OFF>
digest() {
  echo "== $1: $2 $3, oneTBB $4"
  cmake -S . -B "$out/$1" -DCMAKE_CXX_COMPILER="$2" -DCMAKE_CXX_FLAGS="$3" -DCMAKE_BUILD_TYPE=None \
    -DZYL_GEOMETRY_USE_TBB="$4" -DZYL_GEOMETRY_BUILD_TESTS=OFF -DZYL_GEOMETRY_BUILD_EXAMPLES=OFF \
    >"$out/$1.log"
  cmake --build "$out/$1" --target digest --parallel "$(nproc)" >>"$out/$1.log"
  "$out/$1/tools/digest" >"$out/$1.txt"
}

digest gcc-O0 g++ "-O0" ON
digest gcc-native g++ "-O3 -march=native" ON
digest gcc-serial g++ "-O2" OFF
digest clang clang++ "-O2" ON
digest gcc-m32 g++ "-O2 -m32" OFF

status=0
for build in gcc-native gcc-serial clang gcc-m32; do
  if ! diff "$out/gcc-O0.txt" "$out/$build.txt"; then
    echo "$build differs from gcc-O0"
    status=1
  fi
done
cat "$out/gcc-O0.txt"
[ $status -ne 0 ] || echo "the same bits from all five builds"
exit $status
