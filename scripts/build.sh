#!/usr/bin/env bash
# Configures and builds a CMake preset. A success prints one line, a failure prints the log.
# Usage: build.sh PRESET [TARGET...]   (without TARGET: everything of the preset; the target
#        build.ninja stands for configuring alone)
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/.."

preset=${1:?usage: build.sh PRESET [TARGET...]}
shift
log=build/logs/build-$preset.log
stamp=build/$preset/.configured
# A folder that was configured before GoogleTest was installed has no tests.
[[ ! -d /usr/src/googletest ]] || stamp+=-with-tests
export CMAKE_BUILD_PARALLEL_LEVEL=${CMAKE_BUILD_PARALLEL_LEVEL:-$(nproc)}

# Ninja runs CMake again when a CMakeLists.txt has changed, but not when the presets have.
configure() {
    [[ $stamp -nt CMakePresets.json ]] && return
    cmake --preset "$preset" -DCMAKE_EXPORT_COMPILE_COMMANDS=ON && touch "$stamp"
}

build() {
    cmake --build --preset "$preset" ${1:+--target "$@"}
}

mkdir -p build/logs
began=$SECONDS
if { configure && build "$@"; } >"$log" 2>&1; then
    echo "build $preset: ok ($((SECONDS - began)) s)"
else
    cat "$log"
    echo "build $preset: FAILED ($((SECONDS - began)) s)"
    exit 1
fi
