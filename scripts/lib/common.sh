# SPDX-FileCopyrightText: 2026 The Pallistrom authors
# SPDX-License-Identifier: MIT
# shellcheck shell=bash

# What every script here starts with. To be sourced; leaves the caller in the top folder.

cd "$(dirname "${BASH_SOURCE[0]}")/../.."

stepStatus=0
stepLog=$(mktemp)
failedSteps=()

forget_steps() {
    rm -f "$stepLog"
}
trap forget_steps EXIT

# attempt TITLE COMMAND...: one line while all is well, the whole output of the command if it fails.
attempt() {
    local title=$1 began=$SECONDS
    shift
    printf '%-52s ' "$title"
    # In a subshell that no condition surrounds, or its commands would not stop at an error.
    set +e
    (
        set -e
        "$@"
    ) >"$stepLog" 2>&1 </dev/null
    stepStatus=$?
    set -e
    if step_succeeded; then
        printf 'ok  %4d s\n' $((SECONDS - began))
    else
        printf 'FAILED\n\n'
        step_output
        printf '\nFAILED: %s\n\n' "$title"
        failedSteps+=("$title")
    fi
}

# Of the last attempt.
step_succeeded() {
    [[ $stepStatus == 0 ]]
}

step_output() {
    cat "$stepLog"
}

# step TITLE COMMAND...: an attempt without which nothing after it makes sense.
step() {
    attempt "$@"
    step_succeeded || finish
}

# To be called last: ends the script with what its attempts came to.
finish() {
    if [[ ${#failedSteps[@]} == 0 ]]; then
        exit 0
    fi
    printf '\nFailed:\n'
    printf '  %s\n' "${failedSteps[@]}"
    exit 1
}

refuse() {
    printf '%s: %s\n' "$(basename "$0")" "$1" >&2
    exit 2
}
