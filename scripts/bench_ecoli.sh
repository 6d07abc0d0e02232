#!/usr/bin/env bash
# Grammatical complexity of the E. coli 536 genome (NC_008253, 4.9 Mbp), as Debian's
# bowtie-examples package ships it, with the time and peak memory of the run.
#
#   scripts/bench_ecoli.sh [PREFIX_LENGTH] [METHOD]
#
# PREFIX_LENGTH: analyse only the first that many symbols (default: the whole genome).
# METHOD: nvogram (default), shortest, longest or gain.
# The genome is fetched into a temporary folder and removed with it; nothing is kept.
set -euo pipefail
cd "$(dirname "$0")/.."
prefix=${1:-0}
method=${2:-nvogram}

build=build/bench-release
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DTESSARIN_BUILD_UI=OFF -DTESSARIN_BUILD_TESTS=OFF \
    -DTESSARIN_BUILD_BENCH=OFF >/dev/null
cmake --build "$build" --target tessarin-cli >/dev/null

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
(cd "$work" && apt-get download -qq bowtie-examples 2>/dev/null)
dpkg-deb -x "$work"/bowtie-examples_*.deb "$work/package"
genome=$(find "$work/package" -name 'NC_008253.fna.gz' | head -n 1)
# The whole genome is read from its .fna.gz as it is; a prefix is cut from its sequence lines.
if [ "$prefix" -gt 0 ]; then
    input="$work/ecoli.txt"
    zcat "$genome" | grep -v '^>' | tr -d '\r\n' | head -c "$prefix" >"$input"
else
    input="$work/NC_008253.fna.gz"
    cp "$genome" "$input"
fi
echo "Symbols: $(zcat -f "$input" | grep -v '^>' | tr -d '\r\n' | wc -c), method: $method"

/usr/bin/time -v -o "$work/time.txt" "$build/bin/tessarin-cli" --program-dir "$work" \
    complexity --method "$method" "$input" >"$work/window.txt" 2>/dev/null
name=$(basename "$input")
grep -E '^Grammatical Complexity =' "$work/${name%%.*}.log"
echo "Rules: $(grep -c '^Pass' "$work/window.txt")"
grep -E '^Time needed' "$work/window.txt"
grep -E 'Elapsed \(wall clock\)|Maximum resident set size' "$work/time.txt" | sed 's/^[[:space:]]*//'
