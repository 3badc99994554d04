#!/usr/bin/env bash
# usage: install_packages.sh GROUP...
#
# Installs those of the groups' Debian packages that are missing, as root or with sudo. Where
# nothing is missing it touches nothing and needs neither rights nor network.
set -eu

packages_of() {
  case $1 in
    build) echo g++ cmake make libtbb-dev ;;
    test) echo "$(packages_of build)" libgtest-dev libgmp-dev libxml2-utils pkg-config dpkg-dev \
      file ;;
    check)
      echo clang clang-format clang-tidy libclang-rt-dev llvm valgrind g++-mingw-w64-i686-posix \
        g++-multilib libgtest-dev:i386 libgmp-dev:i386
      ;;
    package) echo dpkg-dev file pkg-config debootstrap ;;
    docs) echo doxygen graphviz ;;
    bench) echo "$(packages_of build)" libbenchmark-dev libcgal-dev libeigen3-dev libgeos-dev ;;
    *) fail "no such group of packages: $1 (there are build, test, check, package, docs and bench)" ;;
  esac
}

fail() {
  echo "install_packages.sh: $*" >&2
  exit 1
}

# For the architecture behind the colon, or the machine's own; another one's may stand beside it.
is_installed() {
  local wanted=$architecture
  [[ $1 != *:* ]] || wanted=${1#*:}
  dpkg-query -W -f '${Architecture} ${db:Status-Status}\n' "$1" 2>/dev/null |
    grep -qxE "(all|$wanted) installed"
}

# Prints the command that gives the rights to install, which is nothing for root.
elevation() {
  if [ "$(id -u)" -eq 0 ]; then
    echo
  elif command -v sudo >/dev/null; then
    echo sudo
  else
    return 1
  fi
}

[ $# -gt 0 ] || fail "name a group of packages: build, test, check, package, docs or bench"
wanted=()
for group in "$@"; do
  packages=$(packages_of "$group")
  read -ra packages <<<"$packages"
  wanted+=("${packages[@]}")
done

if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
  fail "this is no Debian system: install what corresponds to ${wanted[*]}, then build with CMake"
fi

architecture=$(dpkg --print-architecture)
missing=()
for package in "${wanted[@]}"; do
  is_installed "$package" || missing+=("$package")
done
if [ ${#missing[@]} -eq 0 ]; then
  echo "== Nothing to install, all are there: ${wanted[*]}"
else
  echo "== Install ${missing[*]}"
  sudo=$(elevation) || fail "not root, and no sudo: have root run apt-get install ${missing[*]}"
  if [[ ${missing[*]} == *:i386* ]]; then
    $sudo dpkg --add-architecture i386
  fi
  $sudo apt-get update || echo "== Not all lists of packages could be read; going on with those at hand"
  $sudo env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends \
    "${missing[@]}" || fail "apt-get failed; with a network, try again: apt-get install ${missing[*]}"
fi

if command -v cmake >/dev/null; then
  version=$(cmake --version | sed -n 's/^cmake version //p')
  dpkg --compare-versions "$version" ge 3.25 ||
    fail "$(command -v cmake) is $version: have CMake 3.25 or newer come first in PATH (cmake.org)"
fi
