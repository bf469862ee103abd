#!/usr/bin/env bash
# Installs the Debian packages the project needs to build, test and benchmark, if missing.
set -euo pipefail

packages=(build-essential cmake ninja-build pkg-config clang clang-format libclang-rt-14-dev locales
          libexpat1-dev zlib1g-dev libpcre2-dev
          libgtest-dev libgmock-dev libbenchmark-dev libxml2-utils
          default-jdk-headless libfastinfoset-java
          libxerces-c-dev opensaml-schemas xmltooling-schemas docbook5-xml xmlstarlet)

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done

if [ ${#missing[@]} -gt 0 ]; then
  echo "installing: ${missing[*]}"
  SUDO=""
  if [ "$(id -u)" -ne 0 ]; then SUDO="sudo"; fi
  $SUDO apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
