#!/usr/bin/env bash
# Installs the Debian packages the builds and tests need (docs/dependencies.md
# says why each is there). Does nothing when all are installed already.
set -euo pipefail

packages=(
  build-essential cmake ninja-build g++ pkg-config
  clang libclang-rt-14-dev
  googletest libgtest-dev libbenchmark-dev
  libutfcpp-dev libcli11-dev
  zlib1g-dev libzstd-dev liblz4-dev
  g++-mingw-w64-i686-posix wine wine32:i386
)

missing=()
for package in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed'; then
    missing+=("$package")
  fi
done
if ((${#missing[@]} == 0)); then
  echo "install_deps.sh: all ${#packages[@]} packages are installed"
  exit 0
fi
echo "install_deps.sh: installing ${missing[*]}"

as_root=()
((EUID == 0)) || as_root=(sudo)
export DEBIAN_FRONTEND=noninteractive

# wine32 is an i386 package.
if ! dpkg --print-foreign-architectures | grep -qx i386; then
  "${as_root[@]}" dpkg --add-architecture i386
fi
# A broken index for one architecture or suite must not stop the install:
# whether the packages install is what counts.
"${as_root[@]}" apt-get update || true
"${as_root[@]}" apt-get install -y "${missing[@]}" ||
  "${as_root[@]}" apt-get install -y -t bookworm "${missing[@]}"
