#!/usr/bin/env bash
# Builds the Debian package for the system that it runs on, checks it, and drives the program in it
# from outside: ./dev package
# What comes out lies in build/package.
# shellcheck source=scripts/common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

id=org.tallowmere.tallowmere
Install "${buildPackages[@]}" git dpkg-dev file lintian desktop-file-utils appstream man-db
Build run tallowmere

SOURCE_DATE_EPOCH=$(git log -1 --format=%ct)
export SOURCE_DATE_EPOCH
rm -rf build/package
(umask 022 && cd build/run && cpack -G DEB -B ../package)
deb=$(echo build/package/tallowmere_*.deb)
root=build/package/root
dpkg-deb -x "$deb" "$root"

Say "the entry of the menu"
desktop-file-validate "$root/usr/share/applications/$id.desktop" | tee build/package/desktop.log
[[ ! -s build/package/desktop.log ]] || Fail "the entry of the menu has flaws"
Say "the page of the software centre"
appstreamcli validate --pedantic --no-net "$root/usr/share/metainfo/$id.metainfo.xml" |
    tee build/package/appstream.log
# Whatever it has to say, be it of no weight to others.
! grep -E '^ *[EWIP]:' build/package/appstream.log || Fail "the page of the software centre has flaws"
Say "the manual page"
LC_ALL=C.UTF-8 MANROFFSEQ='' MANWIDTH=80 man --warnings -E UTF-8 -l -Tutf8 -Z \
    "$root/usr/share/man/man1/tallowmere.1.gz" 2>build/package/man.log >/dev/null
[[ ! -s build/package/man.log ]] || Fail "the manual page has flaws: $(<build/package/man.log)"
Say "no path of the build in the program"
! grep -aF "$PWD" "$root/usr/bin/tallowmere" || Fail "the program holds a path of the build"
Say "lintian"
lintian --allow-root --fail-on error,warning "$deb"
Say "the program in the package, from outside"
Install "${displayPackages[@]}"
AllowRoot
for test in tests/system/test_*.py; do
    Say "$test"
    "$python" -B "$test" "$root/usr/bin/tallowmere"
done
Say "$deb"
dpkg-deb -f "$deb" Version Depends Installed-Size
