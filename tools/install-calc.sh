#!/usr/bin/env bash
# Installs a headless spreadsheet (Debian's libreoffice-calc-nogui) for the test
# that opens the exports as the operator's spreadsheet would. Prints the path of
# soffice when it is there; exits non-zero, saying why, when it cannot be had.
set -u
found() { command -v soffice 2>/dev/null || command -v libreoffice 2>/dev/null; }
if p="$(found)"; then echo "$p"; exit 0; fi
if [ "$(id -u)" -ne 0 ]; then
  echo "libreoffice-calc-nogui is not installed and installing it needs root" >&2
  exit 1
fi
if ! command -v apt-get >/dev/null; then
  echo "libreoffice-calc-nogui is not installed and there is no apt-get here" >&2
  exit 1
fi
# Another install may hold the package lock; wait for it rather than fail.
export DEBIAN_FRONTEND=noninteractive
opts=(-o DPkg::Lock::Timeout=600 -y -q --no-install-recommends)
if ! apt-get "${opts[@]}" install libreoffice-calc-nogui >/dev/null 2>&1; then
  apt-get -o DPkg::Lock::Timeout=600 -q update >/dev/null 2>&1
  if ! apt-get "${opts[@]}" install libreoffice-calc-nogui >/dev/null 2>&1; then
    echo "apt-get could not install libreoffice-calc-nogui" >&2
    exit 1
  fi
fi
if p="$(found)"; then echo "$p"; exit 0; fi
echo "libreoffice-calc-nogui installed but soffice is not on PATH" >&2
exit 1
