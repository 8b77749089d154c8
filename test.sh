#!/usr/bin/env bash
# Construit (Debug, AddressSanitizer + UBSan) et lance tous les tests.
set -euo pipefail
cd "$(dirname "$0")"
./scripts/paquets.sh consommateurs
export CCACHE_DIR="${CCACHE_DIR:-$PWD/.ccache}"
cmake -S . -B build/tests -G Ninja -DCMAKE_BUILD_TYPE=Debug -DARBOLIX_SANITIZE=ON >/dev/null
cmake --build build/tests
# Les cibles de fuzzing rejouent graines et régressions quand clang est là ; la recherche se lance à la main.
if [ $# -eq 0 ]; then
  bench/fuzz.sh 0
fi
cd build/tests
ctest --output-on-failure -j2 "$@"
