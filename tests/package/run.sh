#!/usr/bin/env bash
# Builds and runs a host against the library: installed (CMake package, pkg-config), as a part of the
# host's own build, and linked statically.
#
#   run.sh <source dir> <build dir> <scratch dir> [ON|OFF: build with oneTBB]
set -eu
source=$1
build=$2
scratch=$3
tbb=${4:-ON}
here=$source/tests/package

rm -rf "$scratch"
mkdir -p "$scratch"

# check_installed <prefix> <name>: the two ways to find an installed library.
check_installed() {
  local prefix=$1 name=$2 pc
  cmake -S "$here/installed" -B "$scratch/$name-cmake" -DCMAKE_PREFIX_PATH="$prefix"
  cmake --build "$scratch/$name-cmake"
  "$scratch/$name-cmake/host"

  pc=$(dirname "$(find "$prefix" -name zylGeometry.pc)")
  export PKG_CONFIG_PATH=$pc
  # shellcheck disable=SC2046  # the flags are meant to be split
  c++ -std=c++17 "$here/main.cpp" -o "$scratch/$name-pkg-config" \
    $(pkg-config --cflags --libs $([ "$name" = static ] && echo --static) zylGeometry)
  LD_LIBRARY_PATH=$(pkg-config --variable=libdir zylGeometry) "$scratch/$name-pkg-config"
}

cmake --install "$build" --prefix "$scratch/prefix"
mv "$scratch/prefix" "$scratch/moved"  # nothing in it may remember where it was installed
check_installed "$scratch/moved" shared

cmake -S "$source" -B "$scratch/static-build" -DBUILD_SHARED_LIBS=OFF -DCMAKE_BUILD_TYPE=Release \
  -DZYL_GEOMETRY_BUILD_TESTS=OFF -DZYL_GEOMETRY_BUILD_EXAMPLES=OFF -DZYL_GEOMETRY_USE_TBB="$tbb"
cmake --build "$scratch/static-build"
cmake --install "$scratch/static-build" --prefix "$scratch/static-prefix"
check_installed "$scratch/static-prefix" static

cmake -S "$here/subdirectory" -B "$scratch/subdirectory" -DZYL_GEOMETRY_SOURCE="$source" \
  -DZYL_GEOMETRY_USE_TBB="$tbb"
cmake --build "$scratch/subdirectory"
"$scratch/subdirectory/host"
echo "all four hosts built and ran"
