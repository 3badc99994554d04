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

cmake --install "$build" --prefix "$scratch/prefix"
mv "$scratch/prefix" "$scratch/moved"  # nothing in it may remember where it was installed
"$here/consumer.sh" "$scratch/moved" "$scratch/shared"

cmake -S "$source" -B "$scratch/static-build" -DBUILD_SHARED_LIBS=OFF -DCMAKE_BUILD_TYPE=Release \
  -DZYL_GEOMETRY_BUILD_TESTS=OFF -DZYL_GEOMETRY_BUILD_EXAMPLES=OFF -DZYL_GEOMETRY_USE_TBB="$tbb"
cmake --build "$scratch/static-build"
cmake --install "$scratch/static-build" --prefix "$scratch/static-prefix"
"$here/consumer.sh" "$scratch/static-prefix" "$scratch/static"

cmake -S "$here/subdirectory" -B "$scratch/subdirectory" -DZYL_GEOMETRY_SOURCE="$source" \
  -DZYL_GEOMETRY_USE_TBB="$tbb"
cmake --build "$scratch/subdirectory"
"$scratch/subdirectory/host"
echo "all hosts built and ran"
