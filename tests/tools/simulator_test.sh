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
    [ "$2" = "$3" ] && return
    echo "$1: expected '$3', found '$2'" >&2
    failures=$((failures + 1))
}

# ends STATUS WHAT ARGUMENT...: the exit status, and one line on standard error unless it is 0.
ends() {
    wanted=$1
    what=$2
    shift 2
    "$sim" "$@" >"$work/out" 2>"$work/err"
    expect "$what: status" $? "$wanted"
    expect "$what: lines of complaint" "$(grep -c '' "$work/err")" "$([ "$wanted" = 0 ] && echo 0 || echo 1)"
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
for deck in "2 3 4 31 $(seq -s' ' 5 30) 1 $(seq -s' ' 32 40)" "1 1 $(seq -s' ' 3 40)" "$(seq -s' ' 39)"; do
    echo "$deck" >"$work/deck"
    ends 2 "refused sum, double card or short deck: $deck" --decks "$work/deck"
done

[ "$failures" = 0 ] || exit 1  # A monkey may tease a game that does not go on for ever.

# The same seed gives the same bytes, whatever a monkey does; another seed gives others.
"$sim" --hands 300 --seed 5 --transcript >"$work/one"
sum=$(cksum <"$work/one")
expect "teased hands" "$("$sim" --hands 300 --seed 5 --transcript --monkey | cksum)" "$sum"
[ "$("$sim" --hands 300 --seed 6 --transcript | cksum)" != "$sum" ]
expect "another seed gives other hands" $? 0
for kind in hand:300 move:10800 last:300 score:300; do
    expect "lines of ${kind%:*}" "$(grep -c "^{\"t\":\"${kind%:*}\".*}$" "$work/one")" "${kind#*:}"
done

# A full disk and a closed pipe.
if [ -e /dev/full ]; then
    "$sim" --hands 50 --transcript >/dev/full 2>"$work/err"
    expect "full disk: status" $? 1
    expect "full disk: lines of complaint" "$(grep -c '' "$work/err")" 1
fi
{ "$sim" --hands 3000 --transcript 2>"$work/err"; echo $? >"$work/status"; } | head -n 1 >/dev/null
expect "closed pipe: status" "$(cat "$work/status")" 1

[ "$failures" = 0 ]
