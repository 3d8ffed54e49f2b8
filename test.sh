#!/usr/bin/env bash
# Builds everything and runs all tests: form of the sources, unit tests, and a short run of the fuzz
# targets. With --sanitize the unit tests run once more under the sanitizers, as continuous integration
# does.
set -euo pipefail
cd "$(dirname "$0")"

tools/install-packages --build git libgtest-dev clang clang-format libclang-rt-14-dev qt6-translations-l10n \
    xvfb xauth xdotool cups-daemon cups-client poppler-utils libglib2.0-bin shared-mime-info

echo "== Form of the sources"
git ls-files -co --exclude-standard '*.cpp' '*.h' | xargs -r clang-format --dry-run --Werror

werror=OFF
[[ -n ${CI:-} ]] && werror=ON
run_preset() {
    echo "== $1"
    cmake --preset "$1" -DBRIXLEY_WERROR=$werror -DBRIXLEY_BENCH=OFF >/dev/null
    cmake --build --preset "$1"
    ctest --preset "$1" -j "$(nproc)"
}

if [[ ${1:-} == --sanitize ]]; then
    run_preset sanitize
fi
run_preset debug

echo "== A short run of the fuzz targets"
tools/fuzz --short
