#!/usr/bin/env bash
# A long fuzzing campaign of one target: tools/fuzz.sh TARGET MINUTES
# (TARGET is read_xml, read_values, read_json or read_fi). The target runs in fork mode, so that one finding
# doesn't end the run; every finding is kept as build-fuzz/long/TARGET/crash-* (or leak-,
# timeout-, oom-) and the run's figures are printed at the end. The working corpus grows in
# build-fuzz/long/TARGET/corpus; the committed seeds in fuzz/corpus/TARGET are read, never
# written. Exits 1 if there were findings.
set -euo pipefail
cd "$(dirname "$0")/.."

if [ $# -ne 2 ] || ! [[ "$2" =~ ^[0-9]+$ ]]; then
  echo "usage: tools/fuzz.sh TARGET MINUTES" >&2
  exit 2
fi
target=$1
minutes=$2
if [ ! -d "fuzz/corpus/$target" ]; then
  echo "unknown target '$target': one of $(ls fuzz/corpus | tr '\n' ' ')" >&2
  exit 2
fi

# Campaigns of several targets may start side by side: they build one after the other.
mkdir -p build-fuzz
(
  flock 9
  tools/deps.sh
  CC=clang CXX=clang++ cmake -S . -B build-fuzz -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DORVEXXML_BUILD_FUZZERS=ON -DORVEXXML_BUILD_TESTS=OFF -DORVEXXML_BUILD_DEMO=OFF >/dev/null
  cmake --build build-fuzz --target read_xml_fuzzer read_values_fuzzer read_json_fuzzer read_fi_fuzzer \
    compile_xsd_fuzzer
) 9>build-fuzz/.build.lock

work="build-fuzz/long/$target"
mkdir -p "$work/corpus"
log="$work/fuzz-$(date +%Y%m%d-%H%M%S).log"
marker="$work/.started"
touch "$marker"
echo "fuzzing $target for $minutes minutes; log in $log"
status=0
ASAN_OPTIONS=detect_leaks=1 "./build-fuzz/fuzz/${target}_fuzzer" -fork=1 -ignore_crashes=1 -ignore_timeouts=1 \
  -ignore_ooms=1 -max_total_time=$((minutes * 60)) -rss_limit_mb=2048 -timeout=10 \
  -artifact_prefix="$work/" "$work/corpus" "fuzz/corpus/$target" >"$log" 2>&1 || status=$?

# The last status line of fork mode carries the totals: executions, coverage, corpus, crashes.
last=$(grep -E '^#[0-9]+: cov:' "$log" | tail -n 1 || true)
echo "$last"
counted=$(echo "$last" | sed -nE 's|.*oom/timeout/crash: ([0-9]+)/([0-9]+)/([0-9]+).*|\1 \2 \3|p')
findings=$(find "$work" -maxdepth 1 -type f -newer "$marker" \
  \( -name 'crash-*' -o -name 'leak-*' -o -name 'timeout-*' -o -name 'oom-*' \) | sort)
if [ -n "$findings" ] || { [ -n "$counted" ] && [ "$counted" != "0 0 0" ]; }; then
  echo "findings (libFuzzer exit status $status):"
  echo "$findings"
  exit 1
fi
echo "fuzzing $target: no findings"
