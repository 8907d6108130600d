#!/usr/bin/env bash
# Installs what is missing, builds with warnings as errors, and runs every test:
# once plainly and once built with AddressSanitizer and UndefinedBehaviorSanitizer,
# the Qt layer included (on Qt's offscreen platform).
set -euo pipefail
cd "$(dirname "$0")"
tools/deps.sh
# An include that points up a layer fails before anything is built.
tools/layers.sh
jobs="$(nproc)"
export QT_QPA_PLATFORM=offscreen

cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo -DVESTREL_WERROR=ON > /dev/null
cmake --build build -j"$jobs"
(cd build && ctest --output-on-failure -j"$jobs")

cmake -S . -B build-asan -DVESTREL_SANITIZE=ON -DVESTREL_WITH_QT=ON -DVESTREL_WERROR=ON -DCMAKE_BUILD_TYPE=Debug > /dev/null
cmake --build build-asan -j"$jobs"
(cd build-asan && ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 \
   LSAN_OPTIONS=suppressions="$PWD/../tools/lsan.supp" UBSAN_OPTIONS=print_stacktrace=1 \
   ctest --output-on-failure -j"$jobs")
