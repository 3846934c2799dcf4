#!/usr/bin/env bash
# Installs the Debian packages the build and the tests need, when they are missing. Stage scripts
# pass the extra packages they need (scripts/deps.sh wine64 zip ...).
set -euo pipefail
packages=(cmake g++ make libgtest-dev libbenchmark-dev binutils libgl-dev "$@")
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  echo "Installing: ${missing[*]}"
  sudo=""
  [ "$(id -u)" -eq 0 ] || sudo="sudo"
  $sudo apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
