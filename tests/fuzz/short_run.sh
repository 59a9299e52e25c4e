#!/bin/sh
# Velarda, a card game of the Scopa family.
# SPDX-License-Identifier: MIT
#
# short_run.sh TARGET RUNS CORPUS...: from a fixed seed; the corpus stays as it is. The decimal
# point is a comma, as it is for many who play.

set -eu
target=$1
runs=$2
shift 2
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
mkdir "$folder/new" "$folder/locales"
printf '%s\n' LC_NUMERIC 'decimal_point ","' 'thousands_sep "."' 'grouping 3;3' 'END LC_NUMERIC' \
    >"$folder/comma"
# It grumbles about the other categories, and makes this one.
localedef -c -i "$folder/comma" "$folder/locales/comma" >"$folder/grumbles" 2>&1 || true
[ -f "$folder/locales/comma/LC_NUMERIC" ] || { cat "$folder/grumbles" >&2; exit 1; }
unset LC_ALL
export LOCPATH="$folder/locales" LC_NUMERIC=comma
"$target" -seed=1 -runs="$runs" -timeout=30 -malloc_limit_mb=256 -verbosity=0 \
    -artifact_prefix="$folder/" "$folder/new" "$@"
