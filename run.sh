#!/usr/bin/env bash
# Builds Brixley and starts it. Until the window is there, and on a machine without a display, this prints
# the checked program list of FILE instead: every line with its message, tool position, arc and time.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)

[[ -x $here/build/run/brixley-cli ]] || echo "The first build takes a minute or two." >&2
"$here/tools/install-packages" g++ cmake ninja-build nlohmann-json3-dev libcli11-dev
(
    cd "$here"
    cmake --preset release -DBRIXLEY_TESTS=OFF -DBRIXLEY_BENCH=OFF -B build/run >/dev/null
    log=build/run/build.log
    cmake --build build/run --target brixley-cli >"$log" || { cat "$log"; exit 1; }
) >&2

file=${1:-}
if [[ -z $file ]]; then
    file=$here/examples/mk4-first-turning.cnc
    echo "No file named: showing an example. Use: ./run.sh FILE" >&2
fi
echo "The checked program list (there is no window yet):" >&2
exec "$here/build/run/brixley-cli" show "$file"
