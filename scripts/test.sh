#!/usr/bin/env bash
# Builds and runs the whole test suite: the normal build, then the same tests under
# AddressSanitizer and UndefinedBehaviorSanitizer.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/bootstrap.sh
export QT_QPA_PLATFORM=offscreen
cmake --workflow --preset default
cmake --workflow --preset asan
