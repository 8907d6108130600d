#!/usr/bin/env bash
# Installs the Debian packages Vestrel builds and runs with, when any is missing.
# Quiet and quick when everything is there already.
set -euo pipefail

packages=(g++ cmake make pkg-config qt6-base-dev qt6-multimedia-dev libgl-dev googletest libgtest-dev
          libbenchmark-dev fonts-liberation poppler-utils
          libsqlite3-dev)   # libsqlite3-dev: only the side-by-side benchmark
if [ "${1:-}" = "--desktop" ]; then
  packages+=(qt6-qpa-plugins gstreamer1.0-plugins-good)
fi

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "Installing: ${missing[*]}"
if [ "$(id -u)" -eq 0 ]; then
  SUDO=()
elif command -v sudo >/dev/null 2>&1; then
  SUDO=(sudo)
else
  echo "These packages are missing and there is no sudo to install them: ${missing[*]}" >&2
  exit 1
fi
export DEBIAN_FRONTEND=noninteractive
"${SUDO[@]}" apt-get update -qq
"${SUDO[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
