#!/usr/bin/env bash
# Builds the release configuration and runs `nkfoundation inspect` on the
# program's bundled sample (arguments, if any, go to inspect instead).
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install_deps.sh
cmake --preset release
cmake --build --preset release --target nkfoundation_tool
build/release/nkfoundation inspect "$@"
