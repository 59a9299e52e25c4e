#!/bin/sh
# Velarda, a card game of the Scopa family.
# SPDX-License-Identifier: MIT
#
# What can be seen without running anything: circles among files, the tools that read the code,
# and how the program is linked. Needs the builds of the presets release and dev.

set -eu
cd "$(dirname "$0")/.."
. tools/setup.sh

rooms="platform state preferences table speech game"
commands=build/dev/compile_commands.json
kept=build/static
tidied=$kept/tidy
mkdir -p $tidied $kept/cppcheck
for needed in build/velarda build/velarda-sim $commands; do
    [ -f "$needed" ] || fail "There is no $needed: build the presets release and dev first."
done

echo "Includes"
# The order of the rooms is the build's. Inside a room a source and its header are one unit, so a
# circle through sources counts too.
# shellcheck disable=SC2086  # the list is meant to be split
circles=$(grep -rHo '^#include "[^"]*"' --include='*.cpp' --include='*.h' $rooms tools program assets music |
          sed -E 's/\.(cpp|h):#include "/ /; s/\.h"$//' | awk '$1 != $2' | tsort 2>&1 >/dev/null) || {
    echo "$circles" | sed 's/.*contains a loop:/These include each other, each the next:/; s/^tsort:/ /' >&2
    fail "Files may not include each other in a circle."
}
# shellcheck disable=SC2086
if grep -rnE '^ *# *include *<(Q|qt|SDL)' --exclude-dir=qt --exclude-dir=sound --exclude-dir=windows $rooms >&2; then
    fail "The core is standard C++ and stands by itself."
fi
if grep -rnE '^ *# *include *<(Q|qt)' platform/sound >&2; then
    fail "The sound is standard C++ and SDL."
fi
if readelf -dW build/velarda-sim | grep -E 'NEEDED.*(Qt|SDL)' >&2; then
    fail "The core is linked with a toolkit."
fi

echo "Hardening"
linked=$(readelf -hldW build/velarda && nm -D --undefined-only build/velarda)
# hardened WHAT PATTERN: the linked program has it.
hardened() {
    echo "$linked" | grep -qE "$2" || fail "build/velarda: $1."
}
hardened "it is loaded at a fixed place" 'FLAGS_1.* PIE'
hardened "its functions are bound while it runs" 'FLAGS.* (BIND_)?NOW'
hardened "its tables stay writable" 'GNU_RELRO'
hardened "its stack is executable" 'GNU_STACK .* RW +0x'
hardened "its stack has no protector" ' U __stack_chk_fail'
# Whether a call can be fortified depends on the call, so the commands are looked at.
compiled=$(ninja -C build -t commands velarda | grep -E "\.c(pp|xx)['\"]?\$" | grep -v /.rcc/) ||
    fail "build/velarda: how it was compiled is not known."
if echo "$compiled" | grep -v _FORTIFY_SOURCE=2 >&2; then
    fail "build/velarda: calls are not fortified."
fi
if echo "$linked" | grep -E 'TEXTREL|RPATH|RUNPATH' >&2; then
    fail "build/velarda: code that is written to, or libraries from a folder of its own."
fi

echo "cppcheck"
# It takes plain letters only, so it is given a copy in which a name loses its accent. What CMake
# defines it would take for nothing, and see strings that are not there.
folders="$rooms program tools assets music packaging tests"
rm -rf $kept/plain
mkdir $kept/plain
# shellcheck disable=SC2086  # the list is meant to be split
cp -r $folders $kept/plain
(
    cd $kept/plain
    grep -rl à --include='*.cpp' --include='*.h' . | xargs sed -i s/à/a/g
    # shellcheck disable=SC2086
    cppcheck --quiet --error-exitcode=1 --inline-suppr --cppcheck-build-dir=../cppcheck \
        --std=c++20 --language=c++ -I . --library=qt,googletest \
        -DVELARDA_BUILD_FOLDER='""' -DVELARDA_MUSIC_SOURCES='""' -DVELARDA_SYNTHESISER='""' \
        --enable=warning,performance,portability $folders
) || fail "cppcheck has found something."

echo "clang-tidy"
# What is new since a file was last found clean: it, a header of the project, its command, the rules.
to_do=$kept/to_do
: >$to_do
ninja -C build/dev -t deps | awk -v root="$PWD/" '
    /^[^ ]/ { files = "" }
    /^ / {
        sub(/^ +/, "")
        sub(/build\/dev\/rooms\/[^\/]*\//, "")  # the folders through which headers are found
        if (index($0, root) == 1 && index($0, root "build/") == 0)
            files = files substr($0, length(root) + 1) " "
    }
    /^$/ && files != "" { print files }' | sort -u |
while read -r source headers; do
    # shellcheck disable=SC2086  # the list is meant to be split
    key=$({ cat .clang-tidy tests/.clang-tidy "$source" $headers
            grep -F -- "/$source" $commands
            clang-tidy --version; } | sha256sum)
    stamp=$tidied/$(echo "$source" | tr / _)
    [ "$(cat "$stamp" 2>/dev/null)" = "${key%% *}" ] || echo "$source $stamp ${key%% *}" >>$to_do
done
# shellcheck disable=SC2016  # the inner shell is to expand them
xargs -r -P 2 -n 3 sh -c '
    if clang-tidy -p build/dev --quiet "$1" >"$2.log" 2>&1; then
        echo "$3" >"$2"
    else
        grep -vE "^([0-9]+ |Error while processing)" "$2.log"
        exit 1
    fi' _ <$to_do >&2 ||
    # Other versions know other checks: their findings are shown, and that is all.
    ! clang-tidy --version | grep -qF "version 14." ||
    fail "clang-tidy has found something."
