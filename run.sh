#!/usr/bin/env bash
# Installs what is missing, builds Vestrel and starts it.
set -euo pipefail
cd "$(dirname "$0")"
tools/deps.sh --desktop
cmake -S . -B build -DCMAKE_BUILD_TYPE=Release > /dev/null
cmake --build build --target vestrel -j"$(nproc)"
exec build/vestrel "$@"
