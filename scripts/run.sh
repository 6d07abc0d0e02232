#!/usr/bin/env bash
# Builds everything and runs the main job: the desktop program when a display is there,
# otherwise a headless demo analysis of a bundled example.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/bootstrap.sh
cmake --preset release >/dev/null
cmake --build --preset release

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    exec build/release/bin/tessarin
fi

echo "No display found: a headless demo with tessarin-cli on examples/dna.txt"
demo=$(mktemp -d)
cp examples/dna.txt "$demo/"
cli="build/release/bin/tessarin-cli --program-dir $demo"
$cli display "$demo/dna.txt"
echo
$cli complexity --method nvogram "$demo/dna.txt"
echo
echo "Reports written to $demo:"
ls "$demo"
