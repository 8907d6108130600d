#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test: once plainly and once
# built with AddressSanitizer and UndefinedBehaviorSanitizer.
set -euo pipefail
cd "$(dirname "$0")"
tools/deps.sh
jobs="$(nproc)"

cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo > /dev/null
cmake --build build -j"$jobs"
(cd build && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j"$jobs")

# The sanitizer run covers the program's logic; the Qt layer is tested in the plain run.
cmake -S . -B build-asan -DVESTREL_SANITIZE=ON -DVESTREL_WITH_QT=OFF -DCMAKE_BUILD_TYPE=Debug > /dev/null
cmake --build build-asan -j"$jobs"
(cd build-asan && ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 UBSAN_OPTIONS=print_stacktrace=1 \
   ctest --output-on-failure -j"$jobs")
