#!/usr/bin/env bash
# Construit en Release et ouvre Arbolix sur le fichier donné, ou sur le fichier d'exemple.
set -euo pipefail
cd "$(dirname "$0")"
./scripts/paquets.sh
export CCACHE_DIR="${CCACHE_DIR:-$PWD/.ccache}"
cmake -S . -B build/release -G Ninja -DCMAKE_BUILD_TYPE=Release -DARBOLIX_TESTS=OFF >/dev/null
cmake --build build/release
fichier="${1:-$PWD/share/exemple.ged}"
exec build/release/arbolix "$fichier"
