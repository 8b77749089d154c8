#!/usr/bin/env bash
# Cibles de fuzzing (clang, libFuzzer, ASan + UBSan).
#   bench/fuzz.sh SECONDES [cible...]   cherche de nouvelles entrées pendant SECONDES par cible
#   bench/fuzz.sh 0 [cible...]          rejoue seulement les graines et tests/fuzz/regressions
# test.sh ne fait que rejouer : une recherche au hasard trouverait à chaque machine autre chose
# et rendrait la construction aléatoire ; la recherche se lance à la main, et ce qu'elle trouve
# rejoint tests/fuzz/regressions/CIBLE/ une fois corrigé.
set -euo pipefail
cd "$(dirname "$0")/.."
secondes="${1:-60}"; shift || true
command -v clang++ >/dev/null || { echo "clang++ absent : fuzzing sauté"; exit 0; }
# libFuzzer vient avec le runtime de clang : sans lui, rien à lancer.
sonde=$(mktemp -d)
printf 'extern "C" int LLVMFuzzerTestOneInput(const unsigned char*, unsigned long) { return 0; }\n' > "$sonde/s.cpp"
if ! clang++ -fsanitize=fuzzer,address "$sonde/s.cpp" -o "$sonde/s" 2>/dev/null; then
  rm -rf "$sonde"; echo "libFuzzer absent : fuzzing sauté"; exit 0
fi
rm -rf "$sonde"
export CCACHE_DIR="${CCACHE_DIR:-$PWD/.ccache}"
cmake -S . -B build/fuzz -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_CXX_COMPILER=clang++ \
      -DARBOLIX_FUZZ=ON -DARBOLIX_GUI=OFF -DARBOLIX_TESTS=OFF >/dev/null
cmake --build build/fuzz
cibles=("$@")
[ ${#cibles[@]} -gt 0 ] || cibles=($(cd build/fuzz/fuzz && ls *_fuzz))
for cible in "${cibles[@]}"; do
  # Graines : nos fichiers d'essai et, s'il est là, le corpus des autres logiciels (préfixés de deux octets d'options).
  graines="build/fuzz/graines-$cible"
  rm -rf "$graines"; mkdir -p "$graines"
  for f in tests/donnees/*.ged tests/donnees/*/*.ged share/*.ged ../shared/corpus/gedcom/*; do
    [ -f "$f" ] || continue
    { printf '\xff\x01'; head -c 200000 "$f"; } > "$graines/graine-$(basename "$f")"
  done
  [ ! -d "tests/fuzz/regressions/$cible" ] || cp tests/fuzz/regressions/"$cible"/* "$graines"/
  if [ "$secondes" = 0 ]; then
    echo "== $cible : $(ls "$graines" | wc -l) entrées rejouées"
    build/fuzz/fuzz/"$cible" -runs=0 -timeout=60 -rss_limit_mb=3000 "$graines" 2>&1 | grep -E "ERROR|SUMMARY|INITED|Done" | tail -4
    continue
  fi
  corpus="build/fuzz/corpus-$cible"
  mkdir -p "$corpus" "build/fuzz/artefacts-$cible"
  echo "== $cible : $secondes s"
  build/fuzz/fuzz/"$cible" -max_total_time="$secondes" -max_len=65536 -timeout=10 -rss_limit_mb=3000 \
      -timeout_exitcode=70 -print_final_stats=1 -artifact_prefix="build/fuzz/artefacts-$cible/" \
      "$corpus" "$graines" 2>&1 | grep -E "^#|stat::|ERROR|SUMMARY|cov:|Test unit written" | tail -12
done
