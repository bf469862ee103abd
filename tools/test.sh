#!/usr/bin/env bash
# Installs what is missing, checks the formatting, builds everything and runs the whole test
# suite: once in a release build (including the install test and a short fuzzing run), once
# under AddressSanitizer and UndefinedBehaviorSanitizer.
set -euo pipefail
cd "$(dirname "$0")/.."

tools/deps.sh
jobs=$(nproc)

echo "== formatting"
git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run -Werror

echo "== release build and tests"
# The benchmarks are built too, though not run, so that they keep up with the library.
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=Release -DORVEXXML_BUILD_BENCH=ON
cmake --build build -j "$jobs"
ctest --test-dir build --output-on-failure -j "$jobs"

echo "== sanitizer build and tests (address, undefined)"
cmake -S . -B build-asan -G Ninja -DCMAKE_BUILD_TYPE=Debug -DORVEXXML_SANITIZE=ON -DORVEXXML_BUILD_DEMO=OFF
cmake --build build-asan -j "$jobs"
ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
  ctest --test-dir build-asan --output-on-failure -j "$jobs"

echo "== fuzzing (bounded runs)"
CC=clang CXX=clang++ cmake -S . -B build-fuzz -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DORVEXXML_BUILD_FUZZERS=ON -DORVEXXML_BUILD_TESTS=OFF -DORVEXXML_BUILD_DEMO=OFF
cmake --build build-fuzz -j "$jobs" --target read_xml_fuzzer read_values_fuzzer
for target in read_xml read_values; do
  mkdir -p "build-fuzz/corpus/$target"
  ASAN_OPTIONS=detect_leaks=1 "./build-fuzz/fuzz/${target}_fuzzer" -max_total_time="${FUZZ_SECONDS:-60}" \
    -rss_limit_mb=2048 -timeout=10 -artifact_prefix="build-fuzz/" "build-fuzz/corpus/$target" "fuzz/corpus/$target"
  echo "fuzzing $target: no findings"
done
