#!/usr/bin/env bash
# Installs what is missing, builds the library with everything around it, and runs all tests.
# Safe to run again: what is there already is not touched.
set -eu
cd "$(dirname "$0")/.."

scripts/install_packages.sh test

echo "== Configure and build in build/release"
cmake --preset release
cmake --build --preset release --parallel "$(nproc)"

echo "== Run the tests"
ctest --preset release
