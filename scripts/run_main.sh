#!/usr/bin/env bash
# Builds the library and the program (preset `main`) and runs
# `nkfoundation inspect` on the program's bundled sample (arguments, if any,
# go to inspect instead). Installs only what that build needs.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install_deps.sh main
cmake --preset main >/dev/null
cmake --build --preset main --target nkfoundation_tool
build/main/nkfoundation inspect "$@"
