#!/usr/bin/env bash
# Installs the Debian packages the build and the tests need, when they are missing. Stage scripts
# pass the extra packages they need (scripts/deps.sh wine64 zip ...).
set -euo pipefail
packages=(cmake g++ make libgtest-dev libbenchmark-dev binutils libgl-dev locales "$@")
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
sudo=""
[ "$(id -u)" -eq 0 ] || sudo="sudo"
if [ ${#missing[@]} -gt 0 ]; then
  echo "Installing: ${missing[*]}"
  $sudo apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi

# The scenarios also run under a decimal-comma locale (tests/CMakeLists.txt), which a fresh machine
# does not have until it is generated.
if ! locale -a 2>/dev/null | grep -qix 'de_DE.utf-\?8'; then
  echo "Generating the locale de_DE.UTF-8"
  grep -qx 'de_DE.UTF-8 UTF-8' /etc/locale.gen 2>/dev/null || echo 'de_DE.UTF-8 UTF-8' | $sudo tee -a /etc/locale.gen >/dev/null
  $sudo locale-gen
fi
