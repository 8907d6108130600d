#!/usr/bin/env bash
# Installs what is missing, builds Vestrel and starts it.
set -euo pipefail
cd "$(dirname "$0")"
tools/deps.sh --desktop
# The build type test.sh uses, so that the two share one build without rebuilding it.
cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo > /dev/null
cmake --build build --target vestrel -j"$(nproc)"
exec build/vestrel "$@"
