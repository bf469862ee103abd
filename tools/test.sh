#!/usr/bin/env bash
# Installs what is missing, checks the formatting, builds everything and runs the whole test
# suite: once in a release build (including the install test), once under AddressSanitizer and
# UndefinedBehaviorSanitizer; then the tests that run threads under ThreadSanitizer, and a short
# fuzzing run.
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

echo "== thread sanitizer build and the tests with threads"
# Only the tests labelled threads (suites named ...Threads) run here: they run several
# threads at once on the state the library shares between threads. The programs and their
# tests (the converter, the schema compiler and its generated classes) have none, and are left out.
cmake -S . -B build-tsan -G Ninja -DCMAKE_BUILD_TYPE=Debug -DORVEXXML_TSAN=ON -DORVEXXML_BUILD_DEMO=OFF \
  -DORVEXXML_BUILD_TOOLS=OFF
cmake --build build-tsan -j "$jobs"
TSAN_OPTIONS=halt_on_error=1:second_deadlock_stack=1 \
  ctest --test-dir build-tsan --output-on-failure -j "$jobs" -L threads

echo "== fuzzing (bounded runs)"
CC=clang CXX=clang++ cmake -S . -B build-fuzz -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DORVEXXML_BUILD_FUZZERS=ON -DORVEXXML_BUILD_TESTS=OFF -DORVEXXML_BUILD_DEMO=OFF
cmake --build build-fuzz -j "$jobs" --target read_xml_fuzzer read_values_fuzzer read_json_fuzzer read_fi_fuzzer \
  compile_xsd_fuzzer
for target in read_xml read_values read_json read_fi compile_xsd; do
  mkdir -p "build-fuzz/corpus/$target"
  ASAN_OPTIONS=detect_leaks=1 "./build-fuzz/fuzz/${target}_fuzzer" -max_total_time="${FUZZ_SECONDS:-60}" \
    -rss_limit_mb=2048 -timeout=10 -artifact_prefix="build-fuzz/" "build-fuzz/corpus/$target" "fuzz/corpus/$target"
  echo "fuzzing $target: no findings"
done
