# SPDX-FileCopyrightText: 2026 The Pallistrom authors
# SPDX-License-Identifier: MIT
# shellcheck shell=bash

# The sources as others get them, the same bytes from the same tree. To be sourced after common.sh.

project_version() {
    sed -nE 's/^ *VERSION ([0-9.]+)$/\1/p' CMakeLists.txt
}

# What files in packages and archives are dated: as the last change of the sources, unless the
# environment knows better.
source_date() {
    echo "${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct)}"
}

# reproducible_tar FILE ARGUMENT...: a tar.xz that does not tell who packed it, when and where.
reproducible_tar() {
    local file=$1
    shift
    LC_ALL=C tar --create --sort=name --format=ustar --owner=0 --group=0 --numeric-owner --mode=go=rX,u+rw,a-s \
        --mtime="@$(source_date)" "$@" |
        xz --threads=1 -6 >"$file"
}

# pack_sources FILE TOP-FOLDER PATHSPEC...: what git has or would add, below a folder of that name.
pack_sources() {
    local file=$1 top=$2 list path
    shift 2
    list=$(mktemp)
    git ls-files -z --cached --others --exclude-standard -- "$@" | sort -zu | while IFS= read -r -d '' path; do
        [[ ! -e $path ]] || printf '%s\0' "$path"
    done >"$list"
    reproducible_tar "$file" --transform "s,^,$top/,S" --null --files-from "$list"
    rm "$list"
}
