#!/usr/bin/env bash
# Makes the Debian packages and tries them with the hosts of tests/package.
#
#   scripts/package_test.sh                  on a fresh Debian 12 below build/package (root, network)
#   scripts/package_test.sh --unpack <build> on the unpacked packages of an existing build
#
# Fresh means that nothing is there but what debootstrap makes, what the packages themselves pull in,
# and, for building the hosts, g++, cmake, make and pkg-config. DEBIAN_MIRROR names another mirror.
set -eu
cd "$(dirname "$0")/.."

fail() {
  echo "package_test.sh: $*" >&2
  exit 1
}

# field <name> <package>: a field of the package's control file.
field() { dpkg-deb -f "$2" "$1"; }

# Makes both packages from the build $1 in the folder $2; sets `runtime` and `dev` to their files.
make_packages() {
  local version architecture content
  rm -rf "$2"
  cpack --config "$1/CPackConfig.cmake" -G DEB -B "$2" >"$1/cpack.log" ||
    fail "cpack failed, see $1/cpack.log"
  runtime=$(echo "$2"/libzylgeometryexport[0-9]*.deb)
  dev=$(echo "$2"/libzylgeometryexport-dev_*.deb)
  if [ ! -f "$runtime" ] || [ ! -f "$dev" ]; then
    fail "the packages are not there: $runtime $dev"
  fi

  version=$(sed -n 's/^#define ZYL_GEOMETRY_VERSION_[A-Z]* //p' include/zyl/geometry/version.h |
    paste -sd.)
  architecture=$(dpkg-architecture -qDEB_HOST_MULTIARCH)
  for package in "$runtime" "$dev"; do
    [ "$(field Version "$package")" = "$version" ] || fail "$package is not of version $version"
  done
  [ "$(field Depends "$dev")" = "$(field Package "$runtime") (= $version)" ] ||
    fail "$dev depends on $(field Depends "$dev")"
  [[ $(field Depends "$runtime") == *libstdc++6* ]] ||
    fail "$runtime depends on $(field Depends "$runtime")"
  content=$(dpkg-deb -c "$runtime")
  [[ $content == *"/usr/lib/$architecture/libzylGeometryExport.so.${version%%.*} "* ]] ||
    fail "$runtime has no library named after its SONAME below /usr/lib/$architecture"
}

# The hosts against the unpacked packages of the build $1.
try_unpacked() {
  local work=$1/package
  make_packages "$1" "$work/debs"
  rm -rf "$work/root" "$work/hosts"
  dpkg-deb -x "$runtime" "$work/root"
  dpkg-deb -x "$dev" "$work/root"
  tests/package/consumer.sh "$(realpath "$work/root/usr")" "$work/hosts"
}

# Runs a command in the fresh machine, with nothing of this one's environment.
inside() {
  chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C \
    DEBIAN_FRONTEND=noninteractive "$@"
}

# The library package alone has to run a host built elsewhere; with the other one, hosts are built.
try_fresh() {
  local build=build/package
  root=$PWD/$build/machine
  [ "$(id -u)" -eq 0 ] || fail "only root can set up a machine; --unpack <build> tries them without"
  scripts/install_packages.sh build package
  cmake -S . -B "$build" -DZYL_GEOMETRY_BUILD_TESTS=OFF -DZYL_GEOMETRY_BUILD_EXAMPLES=OFF
  cmake --build "$build" --parallel "$(nproc)"
  try_unpacked "$build"

  echo "== Set up a fresh Debian 12 in $root"
  rm -rf --one-file-system "$root"
  debootstrap --variant=minbase bookworm "$root" "${DEBIAN_MIRROR:-http://deb.debian.org/debian}" \
    >"$build/debootstrap.log" || fail "cannot set up Debian, see $build/debootstrap.log"
  mkdir -p "$root/try/tests"
  cp "$build/package/debs/"*.deb "$build/package/hosts/host" README.md "$root/try"
  cp -r tests/package "$root/try/tests"

  echo "== Install $(basename "$runtime")"
  inside apt-get install -y --no-install-recommends "/try/$(basename "$runtime")"
  inside /try/host
  echo "== Install $(basename "$dev")"
  inside apt-get install -y --no-install-recommends "/try/$(basename "$dev")" g++ cmake make pkg-config
  inside /try/tests/package/consumer.sh /usr /tmp/hosts
  echo "== Remove both"
  inside apt-get purge -y "$(field Package "$dev")" "$(field Package "$runtime")"
  [ -z "$(find "$root/usr" -ipath '*zylgeometry*')" ] || fail "something is left behind in $root/usr"
  rm -rf --one-file-system "$root"
}

if [ "${1:-}" = --unpack ]; then
  try_unpacked "${2:?which build?}"
else
  try_fresh
fi
echo "== The packages work"
