#!/usr/bin/env bash
# Construit en Release le paquet Debian build/paquet/arbolix_VERSION_ARCH.deb (cpack).
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/paquets.sh paquet
export CCACHE_DIR="${CCACHE_DIR:-$PWD/.ccache}"
cmake -S . -B build/paquet -G Ninja -DCMAKE_BUILD_TYPE=Release -DARBOLIX_TESTS=OFF >/dev/null
cmake --build build/paquet
cd build/paquet
cpack -G DEB
ls "$PWD"/arbolix_*.deb
