#!/usr/bin/env bash
# Installs the Debian packages Vestrel builds and runs with, when any is missing.
# Quiet and quick when everything is there already.
set -euo pipefail

# libqt6svg6 holds the plug-ins Qt loads at run time to draw the SVG pictures
# (image format and icon engine); the tests draw every picture too.
# libsqlite3-dev is for the side-by-side benchmark only.
# The CUPS scheduler, its filters and the cups-pdf printer let a test print through
# the real printer path to a queue of its own and read back what came out.
packages=(g++ cmake make pkg-config qt6-base-dev qt6-multimedia-dev libqt6svg6 libgl-dev googletest libgtest-dev
          libbenchmark-dev fonts-liberation poppler-utils libsqlite3-dev
          cups-daemon cups-client cups-filters printer-driver-cups-pdf)
if [ "${1:-}" = "--desktop" ]; then
  # The X11 platform plug-in's extras and the sound back end's decoders.
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
