#!/usr/bin/env bash
# Builds and runs two hosts against an installed library: main.cpp, found as a CMake package and by
# pkg-config, and the first program of README.md, as it stands there.
#
#   consumer.sh <prefix> <scratch dir>
#
# With the prefix /usr nothing is said about places: there, the tools have to look by themselves.
set -eu
prefix=$1
scratch=$2
here=$(cd "$(dirname "$0")" && pwd)

if [ "$prefix" != /usr ]; then
  export CMAKE_PREFIX_PATH=$prefix
  PKG_CONFIG_PATH=$(dirname "$(find "$prefix" -name zylGeometry.pc)")
  LD_LIBRARY_PATH=$(dirname "$PKG_CONFIG_PATH")
  export PKG_CONFIG_PATH LD_LIBRARY_PATH
fi

# block <language>: the block of README.md in that language.
block() {
  sed -n "/^\`\`\`$1\$/,/^\`\`\`\$/{/^\`\`\`/!p}" "$here/../../README.md"
}

mkdir -p "$scratch/readme"
block cpp >"$scratch/readme/first.cpp"
block cmake >"$scratch/readme/CMakeLists.txt"
cmake -S "$scratch/readme" -B "$scratch/readme/build"
cmake --build "$scratch/readme/build"
[ "$("$scratch/readme/build/first")" = 10 ]

cmake -S "$here/installed" -B "$scratch/cmake"
cmake --build "$scratch/cmake"
"$scratch/cmake/host"

linkage=
[ -n "$(find "$prefix/lib" -name libzylGeometryExport.so)" ] || linkage=--static
# shellcheck disable=SC2046  # the flags are meant to be split
c++ -std=c++17 "$here/main.cpp" -o "$scratch/host" \
  $(pkg-config --cflags --libs $linkage zylGeometry)
"$scratch/host"
