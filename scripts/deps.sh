#!/usr/bin/env bash
# Installs the Debian packages that are missing, and does nothing when none is.
#
#   scripts/deps.sh [--fuzz] [--coverage] [--tidy] [--deb]
#
# Without an option: what building, testing and running need. The options add what the less common presets need.
set -euo pipefail

packages=(
    g++ cmake ninja-build ccache pkg-config python3   # building
    libsqlcipher-dev libicu-dev qt6-base-dev          # what the program stands on
    qt6-translations-l10n                             # the toolkit's dialogs in Italian
    fonts-liberation2                                 # the face of the printed pages
    libgtest-dev libgmock-dev libbenchmark-dev zlib1g-dev nlohmann-json3-dev   # tests and benchmarks
    clang-format git                                  # the check of the formatting
)
for option in "$@"; do
    case $option in
    --fuzz) packages+=(clang libclang-rt-14-dev) ;;
    --coverage) packages+=(gcovr) ;;
    --tidy) packages+=(clang-tidy) ;;
    --deb) packages+=(file dpkg-dev) ;;
    *)
        echo "usage: scripts/deps.sh [--fuzz] [--coverage] [--tidy] [--deb]" >&2
        exit 2
        ;;
    esac
done

installed=" $(dpkg-query -W -f='${db:Status-Abbrev}${Package} ' "${packages[@]}" 2>/dev/null || true)"
missing=()
for package in "${packages[@]}"; do
    if [[ $installed != *"ii $package "* ]]; then missing+=("$package"); fi
done
if ((${#missing[@]} == 0)); then exit 0; fi

echo "Installing: ${missing[*]}"
as_root=()
if ((EUID != 0)); then as_root=(sudo); fi
export DEBIAN_FRONTEND=noninteractive
"${as_root[@]}" apt-get update -q
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends "${missing[@]}"
