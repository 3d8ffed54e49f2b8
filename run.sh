#!/usr/bin/env bash
# Builds Brixley and starts it, with FILE when one is named. On a machine without a display this prints the
# checked program list of FILE instead: every line with its message, tool position, arc and time.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)

target=brixley-cli desktop=OFF packages=(g++ cmake ninja-build nlohmann-json3-dev libcli11-dev)
if [[ -n ${DISPLAY:-}${WAYLAND_DISPLAY:-} ]]; then
    target=brixley desktop=ON
    packages+=(qt6-base-dev libqt6svg6-dev)
    [[ -n ${WAYLAND_DISPLAY:-} ]] && packages+=(qt6-wayland)
fi

[[ -x $here/build/run/$target ]] || echo "The first build takes a minute or two." >&2
"$here/tools/install-packages" "${packages[@]}"
(
    cd "$here"
    cmake --preset release -DBRIXLEY_DESKTOP=$desktop -DBRIXLEY_TESTS=OFF -DBRIXLEY_BENCH=OFF -B build/run >/dev/null
    log=build/run/build.log
    cmake --build build/run --target $target >"$log" || { cat "$log"; exit 1; }
) >&2

if [[ $target == brixley ]]; then
    exec "$here/build/run/brixley" "$@"
fi
file=${1:-}
if [[ -z $file ]]; then
    file=$here/examples/mk4-first-turning.cnc
    echo "No file named: showing an example. Use: ./run.sh FILE" >&2
fi
echo "The checked program list (there is no display for a window):" >&2
exec "$here/build/run/brixley-cli" show "$file"
