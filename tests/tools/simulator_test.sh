#!/bin/sh
# Velarda, a card game of the Scopa family.
# SPDX-License-Identifier: MIT
#
# simulator_test.sh SIMULATOR: what the simulator prints, and how it ends.

set -u
sim=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0

expect() {
    if [ "$2" != "$3" ]; then
        echo "$1: expected '$3', found '$2'" >&2
        failures=$((failures + 1))
    fi
}

# ends STATUS WHAT ARGUMENT...: the exit status, and one line on standard error unless it is 0.
ends() {
    wanted=$1
    what=$2
    shift 2
    "$sim" "$@" >"$work/out" 2>"$work/err"
    expect "$what: status" $? "$wanted"
    expect "$what: lines of complaint" "$(wc -l <"$work/err" | tr -d ' ')" "$([ "$wanted" = 0 ] && echo 0 || echo 1)"
}

ends 0 "plain run" --hands 60
expect "hands of the summary" "$(cut -d' ' -f1-4 "$work/out")" "60 hands, 2160 moves,"
ends 2 "unknown argument" --fast
ends 2 "number missing" --hands
ends 2 "not a number" --seed twelve
ends 2 "negative number" --hands -3
ends 2 "file missing" --decks "$work/none"

# A deck comes out as given; one that the shuffle cannot deal is refused.
seq 1 40 | tr '\n' ' ' >"$work/deck"
ends 0 "deck" --hands 1 --decks "$work/deck" --transcript
expect "dealt deck" "$(head -n 1 "$work/out" | sed 's/.*"deck"://')" "[$(seq -s, 1 40)]}"
echo "2 3 4 31 $(seq -s' ' 5 30) 1 $(seq -s' ' 32 40)" >"$work/deck"
ends 2 "refused sum" --decks "$work/deck"
echo "1 1 $(seq -s' ' 3 40)" >"$work/deck"
ends 2 "double card" --decks "$work/deck"
seq 1 39 | tr '\n' ' ' >"$work/deck"
ends 2 "short deck" --decks "$work/deck"

# The same seed gives the same bytes; what a monkey does changes nothing.
"$sim" --hands 300 --seed 5 --transcript >"$work/one"
"$sim" --hands 300 --seed 5 --transcript >"$work/two"
"$sim" --hands 300 --seed 5 --transcript --monkey >"$work/teased"
"$sim" --hands 300 --seed 6 --transcript >"$work/other"
cmp "$work/one" "$work/two" >&2 || failures=$((failures + 1))
cmp "$work/one" "$work/teased" >&2 || failures=$((failures + 1))
cmp -s "$work/one" "$work/other" && { echo "another seed, the same hands" >&2; failures=$((failures + 1)); }
for kind in hand:300 move:10800 last:300 score:300; do
    expect "lines of ${kind%:*}" "$(grep -c "^{\"t\":\"${kind%:*}\"" "$work/one")" "${kind#*:}"
done
if command -v python3 >/dev/null; then
    python3 -c 'import json, sys
for line in open(sys.argv[1]): json.loads(line)' "$work/one" || failures=$((failures + 1))
fi

# A full disk and a closed pipe.
if [ -e /dev/full ]; then
    "$sim" --hands 50 --transcript >/dev/full 2>"$work/err"
    expect "full disk: status" $? 1
    expect "full disk: lines of complaint" "$(wc -l <"$work/err" | tr -d ' ')" 1
fi
{ "$sim" --hands 3000 --transcript 2>"$work/err"; echo $? >"$work/status"; } | head -n 1 >/dev/null
expect "closed pipe: status" "$(cat "$work/status")" 1

[ "$failures" = 0 ]
