# SPDX-FileCopyrightText: 2026 The Pallistrom authors
# SPDX-License-Identifier: MIT
# shellcheck shell=bash

# A preset's way from the sources to the outcome of its tests. To be sourced after common.sh.

# Where ccache is installed, nothing is compiled twice, in whichever folder the sources lie.
if command -v ccache >/dev/null; then
    export CMAKE_CXX_COMPILER_LAUNCHER=${CMAKE_CXX_COMPILER_LAUNCHER:-ccache}
    export CCACHE_BASEDIR=${CCACHE_BASEDIR:-$PWD} CCACHE_NOHASHDIR=${CCACHE_NOHASHDIR:-1}
fi

# Leaves out what is built without a word.
run_build() {
    cmake --build "$@" | sed -E '/^\[[0-9]+\/[0-9]+\] /d'
}

# build_preset PRESET [TARGET...]: all targets if none is named.
build_preset() {
    local preset=$1
    shift
    attempt "Configure $preset" cmake --preset "$preset"
    if step_succeeded; then
        attempt "Build $preset" run_build --preset "$preset" --target "${@:-all}"
    fi
}

# Leaves out the tests that pass.
run_ctest() {
    ctest "$@" 2>&1 | sed -E '/^ +Start +[0-9]+: /d; / Passed +[0-9.]+ sec$/d'
}

# test_folder TITLE RESULTS CTEST-ARGUMENT...: runs tests that were built, and shows what CTest says in
# the end. The details lie in the file RESULTS.
test_folder() {
    local title=$1 results=$2
    shift 2
    attempt "$title" run_ctest "$@" --parallel "$(nproc)" --output-junit "$PWD/$results"
    if step_succeeded; then
        step_output | sed -n '/% tests passed/,$ { /^$/d; s/^/    /p }'
    fi
}

# test_preset PRESET CTEST-ARGUMENT...
test_preset() {
    local preset=$1
    shift
    test_folder "Test $preset" "build/$preset/test-results.xml" --preset "$preset" "$@"
}

# build_and_test PRESET CTEST-ARGUMENT...
build_and_test() {
    build_preset "$1"
    if step_succeeded; then
        test_preset "$@"
    fi
}

# skipped_in RESULTS PRESET
skipped_in() {
    awk -v preset="$2" '
        # GoogleTest gives its reason on the line after the one that ends in "Skipped".
        function keep(line) {
            sub(/^[[:space:]]*<system-out>/, "", line)
            if (reasonFollows || (reason == "" && line != "")) reason = line
            reasonFollows = line ~ /: Skipped$/
        }
        /<testcase .* status="notrun"/ {
            split($0, part, "\""); name = part[2]; reason = ""; reasonFollows = 0; inOutput = 0
        }
        name != "" && /<system-out>/ { inOutput = 1 }
        name != "" && inOutput { keep($0) }
        name != "" && /<\/testcase>/ {
            printf "    %s (%s): %s\n", name, preset, reason
            name = ""
        }
    ' "$1"
}

# list_skipped PRESET...: the tests of these presets that did not run, each with its reason.
list_skipped() {
    local preset results
    for preset in "$@"; do
        for results in "build/$preset"/*test-results.xml; do
            [[ ! -e $results ]] || skipped_in "$results" "$preset"
        done
    done
}
