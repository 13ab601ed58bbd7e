#!/usr/bin/env bash
# Installs the Debian packages that a job needs, and nothing more: no
# recommended packages, no group that the job does not use.
# docs/dependencies.md says why each package is there.
#
#   install_deps.sh GROUP...
#
#   main     the library and the program: compiler, CMake, Ninja, libraries
#   dev      main plus the native tests (GoogleTest, pkg-config)
#   fuzz     clang with libFuzzer and the sanitizer runtimes
#   bench    Google Benchmark and the compression peers
#   win32    the 32-bit Windows cross compiler and 32-bit Wine
#   win64    the 64-bit Windows cross compiler and 64-bit Wine
#   binding  SWIG and Mono for the managed binding and its C# test (SWIG is also in main)
#
# Does nothing when everything is installed. Needs root (or sudo) only when
# something is missing.
set -euo pipefail

declare -A group_packages=(
  [main]="g++ cmake ninja-build libutfcpp-dev libcli11-dev libjpeg62-turbo-dev libpng-dev swig"
  [dev]="libgtest-dev pkg-config"
  [fuzz]="clang libclang-rt-14-dev"
  [bench]="libbenchmark-dev pkg-config zlib1g-dev libzstd-dev liblz4-dev"
  [win32]="g++-mingw-w64-i686-posix googletest wine wine32:i386"
  [win64]="g++-mingw-w64-x86-64-posix googletest wine wine64"
  [binding]="swig mono-mcs mono-runtime"
)

(($# > 0)) || set -- main
packages=()
for group in main "$@"; do
  if [[ -z ${group_packages[$group]+set} ]]; then
    echo "install_deps.sh: unknown group '$group' (${!group_packages[*]})" >&2
    exit 2
  fi
  read -ra listed <<<"${group_packages[$group]}"
  packages+=("${listed[@]}")
done

installed() {
  dpkg-query -W -f='${Status}' "$1" 2>/dev/null | grep -q 'install ok installed'
}

missing=()
for package in $(printf '%s\n' "${packages[@]}" | sort -u); do
  installed "$package" || missing+=("$package")
done
if ((${#missing[@]} == 0)); then
  exit 0
fi
echo "install_deps.sh: installing ${missing[*]}"

as_root=()
if ((EUID != 0)); then
  if ! command -v sudo >/dev/null; then
    cat >&2 <<EOF
install_deps.sh: these Debian packages are missing, and installing them needs root:
  ${missing[*]}
Run the same command as root (for example: su -c '$0 $*'), or install them yourself:
  apt-get install --no-install-recommends ${missing[*]}
EOF
    exit 1
  fi
  as_root=(sudo)
fi
export DEBIAN_FRONTEND=noninteractive
apt_install=("${as_root[@]}" apt-get install -y --no-install-recommends)

# 32-bit Wine is an i386 package.
if [[ " ${missing[*]} " == *:i386* ]] && ! dpkg --print-foreign-architectures | grep -qx i386; then
  "${as_root[@]}" dpkg --add-architecture i386
fi
# A stale index for one architecture or suite (a mirror in sync) must not
# stop the install: whether the packages install is what counts.
"${as_root[@]}" apt-get update -qq || true
if "${apt_install[@]}" "${missing[@]}"; then
  exit 0
fi
# When the security suite's index of one architecture lags behind the other's,
# the two halves of a multi-architecture library cannot agree on a version;
# the release suite alone holds one version for both.
echo "install_deps.sh: retrying from the release suite alone"
"${apt_install[@]}" -t bookworm "${missing[@]}"
