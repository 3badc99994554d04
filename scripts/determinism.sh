#!/usr/bin/env bash
# Builds the digest program with different compilers, optimisation levels, word sizes, with and
# without oneTBB, and, where Wine can run it (packages wine and wine32:i386), for 32-bit Windows.
# Runs it and fails unless all print the same.
set -eu
cd "$(dirname "$0")/.."

scripts/install_packages.sh test check

out=build/determinism
mkdir -p "$out"
builds=()

# digest <name> <argument of cmake>...
digest() {
  local name=$1
  shift
  echo "== $name: $*"
  cmake -S . -B "$out/$name" "$@" -DZYL_GEOMETRY_BUILD_TESTS=OFF -DZYL_GEOMETRY_BUILD_EXAMPLES=OFF \
    >"$out/$name.log"
  cmake --build "$out/$name" --target digest --parallel "$(nproc)" >>"$out/$name.log"
  if [ -f "$out/$name/tools/digest.exe" ]; then
    wine "$out/$name/tools/digest.exe" | tr -d '\r' >"$out/$name.txt"
  else
    "$out/$name/tools/digest" >"$out/$name.txt"
  fi
  builds+=("$name")
}

# native <name> <compiler> <flags> <oneTBB: ON or OFF>
native() {
  digest "$1" -DCMAKE_CXX_COMPILER="$2" -DCMAKE_CXX_FLAGS="$3" -DCMAKE_BUILD_TYPE=None \
    -DZYL_GEOMETRY_USE_TBB="$4"
}

native gcc-O0 g++ "-O0" ON
native gcc-native g++ "-O3 -march=native" ON
native gcc-serial g++ "-O2" OFF
native clang clang++ "-O2" ON
native gcc-m32 g++ "-O2 -m32" OFF
if command -v wine >/dev/null; then
  digest mingw32 --toolchain cmake/mingw32.cmake -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_EXE_LINKER_FLAGS=-static -DZYL_GEOMETRY_USE_TBB=OFF
else
  echo "== mingw32: left out, there is no Wine"
fi

status=0
for build in "${builds[@]}"; do
  if ! diff "$out/gcc-O0.txt" "$out/$build.txt"; then
    echo "$build differs from gcc-O0"
    status=1
  fi
done
cat "$out/gcc-O0.txt"
[ $status -ne 0 ] || echo "the same bits from all builds: ${builds[*]}"
exit $status
