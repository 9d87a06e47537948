#!/usr/bin/env bash
# Builds Velmora and runs the whole test suite headless; non-zero on any failure.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

cd "$VELMORA_BUILD"
QT_QPA_PLATFORM=offscreen ctest -j "$(nproc)" --output-on-failure
