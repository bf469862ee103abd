#!/usr/bin/env bash
# Installs what is missing, builds everything and runs the whole test suite: once in a
# release build (including the install test and a short fuzzing run), once under
# AddressSanitizer and UndefinedBehaviorSanitizer.
set -euo pipefail
cd "$(dirname "$0")/.."

tools/deps.sh
jobs=$(nproc)

echo "== release build and tests"
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=Release
cmake --build build -j "$jobs"
ctest --test-dir build --output-on-failure -j "$jobs"

echo "== sanitizer build and tests (address, undefined)"
cmake -S . -B build-asan -G Ninja -DCMAKE_BUILD_TYPE=Debug -DORVEXXML_SANITIZE=ON -DORVEXXML_BUILD_DEMO=OFF
cmake --build build-asan -j "$jobs"
ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
  ctest --test-dir build-asan --output-on-failure -j "$jobs"
