#!/bin/sh
# Velarda, a card game of the Scopa family.
# SPDX-License-Identifier: MIT
#
# check_metadata.sh BUILD-FOLDER: makes the Debian package of a finished build and has everything
# that menus, software centres, manuals and package managers read examined by their own tools.
# The first complaint ends it, in one line.
# shellcheck disable=SC2015  # in "this && that || fail" nothing comes back from fail

set -eu
LC_ALL=C.UTF-8
export LC_ALL

fail() {
    echo "check_metadata: $1" >&2
    exit 1
}

[ $# -eq 1 ] && [ -f "$1/CPackConfig.cmake" ] || fail "wants the folder of a finished build"
build=$(cd "$1" && pwd)
source=$(cd "$(dirname "$0")" && pwd)
id=net.velarda.Velarda

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
trap 'exit 1' HUP INT TERM

# Tool and package have other names here and there.
need() {
    command -v "$1" >/dev/null || fail "$1 is missing: install $2"
}
need desktop-file-validate desktop-file-utils
need appstreamcli appstream
need man man-db
need dpkg-deb dpkg
need dpkg-shlibdeps dpkg-dev
need lintian lintian

# complaint FILE: what of a tool's output tells most, on one line.
complaint() {
    grep -Ei -m 1 '^([EW]:|.*(error|warning))' "$1" || grep -m 1 . "$1" || echo "no reason given"
}

# An entry that starts nothing, or has no picture, is valid all the same.
grep -qx 'Exec=velarda' "$source/$id.desktop" || fail "$id.desktop does not start velarda"
grep -qx "Icon=$id" "$source/$id.desktop" || fail "$id.desktop has not the icon $id"
# Even a hint of this one is a complaint: it says nothing of a good file.
desktop-file-validate "$source/$id.desktop" >"$work/log" 2>&1 && [ ! -s "$work/log" ] ||
    fail "$id.desktop: $(complaint "$work/log")"

appstreamcli validate --no-net --no-color "$build/packaging/$id.metainfo.xml" >"$work/log" 2>&1 ||
    fail "$id.metainfo.xml: $(complaint "$work/log")"

man --warnings -E UTF-8 -Tutf8 -Z -l "$source/velarda.6" >/dev/null 2>"$work/log" &&
    [ ! -s "$work/log" ] || fail "velarda.6: $(complaint "$work/log")"

# A new version must reach every text that tells it.
version=$(sed -n 's/^set(CPACK_PACKAGE_VERSION "\(.*\)")$/\1/p' "$build/CPackConfig.cmake")
[ -n "$version" ] || fail "the build names no version"
[ "$(sed -n '1s/^velarda (\(.*\)) .*/\1/p' "$source/debian/changelog")" = "$version" ] ||
    fail "debian/changelog does not begin with version $version"
newest=$(sed -n 's/.*<release version="\([^"]*\)".*/\1/p' "$source/$id.metainfo.xml.in" | head -n 1)
[ "$newest" = "$version" ] || fail "$id.metainfo.xml.in does not begin its releases with $version"
grep -q "^\.TH VELARDA 6 .* \"Velarda $version\" " "$source/velarda.6" ||
    fail "velarda.6 is not of version $version"

cpack -G DEB --config "$build/CPackConfig.cmake" -B "$work" >"$work/log" 2>&1 ||
    fail "the package could not be made: $(sed -n '/Error/,$p' "$work/log" | tr -s ' \n' ' ')"
package=$(find "$work" -maxdepth 1 -name '*.deb')
[ -f "$package" ] || fail "no package was made"

dpkg-deb -x "$package" "$work/root"
contained() {
    [ -s "$work/root/usr/$1" ] || fail "the package lacks /usr/$1"
}
contained games/velarda
contained share/games/velarda/config.crv
contained share/games/velarda/carta.wav
contained share/applications/$id.desktop
contained share/metainfo/$id.metainfo.xml
contained share/icons/hicolor/scalable/apps/$id.svg
contained share/man/man6/velarda.6.gz
# A build without abc2midi goes through, but is not to be given to others.
melodies=$(find "$work/root/usr/share/games/velarda/music" -name '*.mid' -size +0 2>"$work/log" | wc -l)
[ "$melodies" -eq 12 ] || fail "the package has $melodies melodies in place of 12"
for size in 16 22 24 32 48 64 128 256; do
    icon=share/icons/hicolor/${size}x$size/apps/$id.png
    contained "$icon"
    # Bytes 16 to 23 of a PNG file: width and height.
    found=$(od -An -j 16 -N 8 -t x1 "$work/root/usr/$icon" | tr -d ' \n')
    [ "$found" = "$(printf '%08x%08x' "$size" "$size")" ] || fail "$icon is not $size pixels wide and high"
done

lintian "$package" >"$work/log" 2>"$work/errors" && [ ! -s "$work/log" ] ||
    fail "the package: $(cat "$work/log" "$work/errors" >"$work/all"; complaint "$work/all")"

echo "The metadata and the package of Velarda $version are clean."
