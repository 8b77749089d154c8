#!/usr/bin/env bash
# Lance les cibles de fuzzing (clang, libFuzzer, ASan + UBSan) : bench/fuzz.sh SECONDES [cible...]
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
  corpus="build/fuzz/corpus-$cible"
  mkdir -p "$corpus"
  # Graines : nos fichiers d'essai et, s'il est là, le corpus des autres logiciels (préfixés de deux octets d'options).
  for f in tests/donnees/*.ged tests/donnees/*/*.ged share/*.ged ../shared/corpus/gedcom/*; do
    [ -f "$f" ] || continue
    { printf '\xff\x01'; head -c 200000 "$f"; } > "$corpus/graine-$(basename "$f")"
  done
  mkdir -p "build/fuzz/artefacts-$cible"
  code_lenteur=70
  [ -z "${FUZZ_GRAINE:-}" ] || code_lenteur=0
  echo "== $cible : $secondes s"
  # La courte passe de test.sh (FUZZ_GRAINE) tourne sur une machine chargée : une entrée lente y est
  # écrite et signalée sans faire échouer la construction ; un plantage, lui, la fait échouer.
  build/fuzz/fuzz/"$cible" -max_total_time="$secondes" -seed="${FUZZ_GRAINE:-0}" -max_len=65536 -timeout=10 -rss_limit_mb=3000 \
      -timeout_exitcode="$code_lenteur" \
      -print_final_stats=1 -artifact_prefix="build/fuzz/artefacts-$cible/" "$corpus" 2>&1 | grep -E "^#|stat::|ERROR|SUMMARY|cov:|Test unit written" | tail -12
done
