#!/usr/bin/env bash
# Construit (Debug, AddressSanitizer + UBSan) et lance tous les tests.
set -euo pipefail
cd "$(dirname "$0")"
./scripts/paquets.sh consommateurs
export CCACHE_DIR="${CCACHE_DIR:-$PWD/.ccache}"
cmake -S . -B build/tests -G Ninja -DCMAKE_BUILD_TYPE=Debug -DARBOLIX_SANITIZE=ON >/dev/null
cmake --build build/tests
# Une courte passe de fuzzing par cible quand clang est là ; la longue se lance à la main.
if [ $# -eq 0 ]; then
  FUZZ_GRAINE=1 bench/fuzz.sh 60
fi
cd build/tests
ctest --output-on-failure -j2 "$@"
