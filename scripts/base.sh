#!/usr/bin/env bash
# Runs ./run, ./test, ./dev package or ./dev bench on a bare Debian of another release:
#   ./dev base NAME [run|test|package|bench [ARGUMENT...]]
# The bare system is made once, under build/base; what is committed is cloned into it. Its log, its
# pictures and what ctest wrote come back to build/base.
# shellcheck disable=SC2016 # the formats of other programs have dollar signs, too
# shellcheck source=scripts/common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

# The mirror that this machine itself takes Debian's packages from.
Mirror() {
    local mirror
    mirror=$(apt-get indextargets --format '$(ORIGIN)|$(LABEL)|$(REPO_URI)' |
        sed -n 's/^Debian|Debian|//p' | sort -u | head -n 1)
    [[ -n $mirror ]] || Fail "the package sources of this machine name no mirror of Debian"
    echo "$mirror"
}

MakeBase() {
    local script=/usr/share/debootstrap/scripts/$name
    Install debootstrap git
    # A release that is newer than our debootstrap is made as the unstable one is.
    [[ -e $script ]] || script=/usr/share/debootstrap/scripts/sid
    Say "making a bare $name in $root"
    rm -rf --one-file-system "$root.new"
    mkdir -p build/base
    debootstrap --variant=minbase "$name" "$root.new" "$(Mirror)" "$script"
    # The list of a release that is not out yet may be past its date.
    echo 'Acquire::Check-Valid-Until "false";' >"$root.new/etc/apt/apt.conf.d/valid-until"
    mv "$root.new" "$root"
}

CloneTree() {
    [[ -z $(git status --porcelain) ]] || Say "what is not committed does not come along"
    if [[ ! -d $root/tree/.git ]]; then
        git clone -q --no-hardlinks . "$root/tree"
    else
        git -C "$root/tree" fetch -q "$PWD" HEAD
        git -C "$root/tree" reset -q --hard FETCH_HEAD
    fi
}

# Started in a process and mount namespace of its own: mounts and processes end with it, however
# it ends. The root is changed for good, as a container's is: the kernel gives nobody behind a mere
# chroot the namespaces that the web engine's sandbox is made of.
Enter() {
    local root=$1 variable passed=()
    shift
    mount --bind "$root" "$root"
    mount -t proc proc "$root/proc"
    mount --bind /dev "$root/dev"
    mount -t tmpfs tmpfs "$root/dev/shm"
    for variable in CMAKE_BUILD_PARALLEL_LEVEL CTEST_PARALLEL_LEVEL http_proxy https_proxy; do
        [[ -z ${!variable-} ]] || passed+=("$variable=${!variable}")
    done
    cd "$root"
    pivot_root . mnt
    umount -l /mnt
    exec /usr/bin/env -i HOME=/root LANG=C.UTF-8 DEBIAN_FRONTEND=noninteractive \
        PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin "${passed[@]}" \
        /bin/bash -c 'cd /tree && exec "$@"' base "$@" </dev/null
}

BringBack() {
    local made=$root/tree/build result=build/base/$name-$what
    rm -rf "$result.png" "$result-screenshots" "$result-ctest.log"
    [[ ! -f $made/run.png ]] || mv "$made/run.png" "$result.png"
    [[ $what == test ]] || return 0
    [[ ! -d $made/screenshots ]] || mv "$made/screenshots" "$result-screenshots"
    [[ ! -f $made/dev/Testing/Temporary/LastTest.log ]] ||
        cp "$made/dev/Testing/Temporary/LastTest.log" "$result-ctest.log"
}

if [[ ${1-} == --enter ]]; then
    shift
    Enter "$@"
fi

name=${1-}
what=${2-run}
shift $(($# < 2 ? $# : 2))
[[ $name =~ ^(bookworm|trixie|forky)$ && $what =~ ^(run|test|package|bench)$ ]] ||
    Fail "which base? ./dev base bookworm|trixie|forky [run|test|package|bench [ARGUMENT...]]"
((EUID == 0)) || Fail "a bare system is made and entered by root: sudo ./dev base $name $what"
root=$PWD/build/base/$name

[[ -d $root ]] || MakeBase
CloneTree
log=build/base/$name-$what.log
command=(./"$what")
[[ $what =~ ^(run|test)$ ]] || command=(./dev "$what")
Say "${command[*]} on $name; log: $log"
began=$SECONDS
code=0
unshare --mount --propagation private --pid --fork --kill-child \
    bash scripts/base.sh --enter "$root" "${command[@]}" "$@" 2>&1 | tee "$log" || code=$?
BringBack
{
    Say "${command[*]} on $name ended with $code after $((SECONDS - began)) s, on"
    chroot "$root" dpkg-query -W -f '    ${Package} ${Version}\n' libqt6webenginecore6 g++ cmake ||
        true
} | tee -a "$log"
exit "$code"
