#!/usr/bin/env bash
# Installs the Debian packages that building, testing and running Tessarin need.
# Only Debian's packages are used; nothing is downloaded any other way.
set -euo pipefail

packages=(
    build-essential cmake ninja-build pkg-config
    qt6-base-dev qt6-base-dev-tools libgl-dev
    libgtest-dev libgmock-dev libbenchmark-dev
    libcli11-dev qt6-charts-dev qt6-svg-dev libqt6opengl6-dev
    libhts-dev zlib1g-dev
    clang-format xvfb xauth fonts-dejavu-core
)

missing=()
for package in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed" || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

sudo=""
[ "$(id -u)" -ne 0 ] && sudo="sudo"
echo "Installing: ${missing[*]}"
$sudo apt-get update -qq
DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
