#!/usr/bin/env bash
# Builds Brixley and starts it, with FILE when one is named. On a machine without a display this prints the
# checked program list of FILE instead (every line with its message, tool position, arc and time) and draws its
# tool path into build/drawings.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)

targets=(brixley-cli brixley-pictures brixley-serial)
packages=()
if [[ -n ${DISPLAY:-}${WAYLAND_DISPLAY:-} ]]; then
    targets=(brixley "${targets[@]}")
    packages=(qt6-translations-l10n)
    [[ -n ${WAYLAND_DISPLAY:-} ]] && packages+=(qt6-wayland)
fi

[[ -x $here/build/run/${targets[0]} ]] || echo "The first build takes a few minutes." >&2
"$here/tools/install-packages" --build "${packages[@]}"
(
    cd "$here"
    cmake --preset release -DBRIXLEY_DESKTOP=ON -DBRIXLEY_TESTS=OFF -DBRIXLEY_BENCH=OFF -B build/run >/dev/null
    log=build/run/build.log
    # How far it is, in one line that is written over; nothing where nobody looks.
    steps() {
        [[ -t 2 ]] || { cat >/dev/null; return; }
        sed -un 's/^\(\[[0-9]*\/[0-9]*\]\).*/\1/p' | while read -r step; do printf '\r%s' "$step"; done
        printf '\r\033[K'
    }
    cmake --build build/run --target "${targets[@]}" | tee "$log" | steps || { cat "$log"; exit 1; }
) >&2

if [[ ${targets[0]} == brixley ]]; then
    exec "$here/build/run/brixley" "$@"
fi
file=${1:-}
if [[ -z $file ]]; then
    file=$here/examples/mk4-first-turning.cnc
    echo "No file named: showing an example. Use: ./run.sh FILE" >&2
fi
echo "The checked program list (there is no display for a window):" >&2
"$here/build/run/brixley-cli" show "$file"

name=$(basename "$file")
picture=$here/build/drawings/${name%.*}.png
mkdir -p "$here/build/drawings"
if "$here/build/run/brixley-cli" draw "$file" -o "$picture"; then
    echo "The tool path is drawn in $picture" >&2
else
    status=$?
    ((status == 1)) || exit "$status" # with messages it isn't drawn, which has been said
fi
