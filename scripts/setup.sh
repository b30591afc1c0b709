#!/usr/bin/env bash
# Installs the Debian packages Zentra needs to build, test, benchmark and fuzz.
# Idempotent: prints nothing and touches nothing when everything is already there.
set -euo pipefail

packages=(
  cmake g++ make pkg-config
  qtbase5-dev libqt5opengl5-dev
  libexpat1-dev
  libgl-dev libglu1-mesa-dev libgl1-mesa-dri
  xvfb xauth
  libbenchmark-dev
  clang-14 libclang-rt-14-dev
  python3
)

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "setup: installing ${missing[*]}"
SUDO=""
[ "$(id -u)" -ne 0 ] && SUDO="sudo"
export DEBIAN_FRONTEND=noninteractive
$SUDO apt-get update -qq
$SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
