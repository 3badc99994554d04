#!/usr/bin/env bash
# Builds zylGeometryExport.dll for 32-bit Windows, compares its exports with the list, and builds a
# host of it, which Wine runs where it is there (packages wine and wine32:i386).
set -eu
cd "$(dirname "$0")/.."

scripts/install_packages.sh check

cmake --preset mingw32
cmake --build --preset mingw32
build=build/mingw32
dll=$build/src/zylGeometryExport.dll
cmake -DLIBRARY=$dll -DLIST=tests/project/exported_symbols.txt \
  -DOBJDUMP=i686-w64-mingw32-objdump -DCXXFILT=i686-w64-mingw32-c++filt \
  -P tests/project/exported_symbols.cmake

# An exception crosses from a DLL to its host only if both use one run-time library.
for runtime in libgcc_s_dw2-1.dll libstdc++-6.dll; do
  i686-w64-mingw32-objdump -p $dll | grep -q "DLL Name: $runtime" || {
    echo "$dll has a $runtime of its own: no host could catch what it throws" >&2
    exit 1
  }
done

compiler=i686-w64-mingw32-g++-posix
host=$build/host
mkdir -p $host
cp $dll $host
for runtime in libgcc_s_dw2-1.dll libstdc++-6.dll libwinpthread-1.dll; do
  cp "$($compiler -print-file-name=$runtime)" $host
done
$compiler -std=c++17 -O2 -Iinclude tests/project/host_test.cpp $build/src/libzylGeometryExport.dll.a \
  -o $host/host_test.exe
if command -v wine >/dev/null; then
  wine $host/host_test.exe
  echo "the host runs"
else
  echo "the host is built; there is no Wine to run it"
fi
