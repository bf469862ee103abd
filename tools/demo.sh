#!/usr/bin/env bash
# Installs what is missing, builds the library and runs the demo.
set -euo pipefail
cd "$(dirname "$0")/.."

tools/deps.sh
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=Release
cmake --build build --target orvexxml_demo
./build/demo/orvexxml_demo
