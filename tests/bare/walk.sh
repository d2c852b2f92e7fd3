#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Walks README on fresh Debian 12 machines (chroots made by debootstrap, as root): ./dev check --bare [quick]
#   1. as root, in a folder with blanks and Han letters: ./dev run
#   2. as a user with sudo: ./dev run and ./dev test; "quick" leaves the tests out
#   3. as a user without sudo, with everything installed: ./dev run asks for nothing
#   4. the Debian packages alone: both programs start
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."

MACHINES=${INDICATORUI_MACHINES:-$PWD/build/bare}
CACHE=$MACHINES/cache # of ccache, which the machines share: to compile the same once is enough
FOLDER="图 表/indicator ui"

say() { printf '\033[1m%s\033[0m\n' "$*" >&2; }
fail() { printf '%s\n' "$*" >&2; exit 1; }

[ "$(id -u)" -eq 0 ] || fail "Machines of the kind needed here are made by root: sudo ./dev check --bare"
[ -n "${IN_MOUNTS_OF_ITS_OWN:-}" ] || exec env IN_MOUNTS_OF_ITS_OWN=1 unshare --mount "${BASH_SOURCE[0]}" "$@"

# A fresh machine with git and bash that loads packages from where this one does.
new_machine() {
    local machine=$MACHINES/$1 site
    rm -rf --one-file-system "$machine"
    mkdir -p "$machine"
    site=$(apt-get indextargets --format '$(SITE)' 'Created-By: Packages' | head -n 1)
    debootstrap --variant=minbase --include=git,ca-certificates bookworm "$machine" "$site" >"$machine.log" 2>&1 \
        || { tail "$machine.log" >&2; fail "debootstrap failed"; }
    cp /etc/resolv.conf "$machine/etc/resolv.conf"
    : >"$machine/etc/apt/sources.list"
    cp -r /etc/apt/sources.list.d/. "$machine/etc/apt/sources.list.d/"
    cp -r /etc/apt/apt.conf.d/. "$machine/etc/apt/apt.conf.d/"
    mount -t proc proc "$machine/proc"
    mkdir -p "$CACHE" "$machine/cache"
    chmod -R a+rwX "$CACHE" # whoever filled it before
    mount --bind "$CACHE" "$machine/cache"
    on "$1" root "apt-get update -qq"
}

# on MACHINE USER COMMAND: from that user's home, with a clean environment.
on() {
    local home=/root
    [ "$2" = root ] || home=/home/$2
    chroot "$MACHINES/$1" su "$2" -s /bin/bash -c "cd $home && env -i HOME=$home USER=$2 LC_ALL=C.UTF-8 \
        CCACHE_DIR=/cache PATH=/usr/local/bin:/usr/bin:/bin:/usr/sbin:/sbin bash -euc $(printf %q "$3")"
}

# The committed state, in a folder of that user.
give_sources() {
    local home=/root
    [ "$2" = root ] || home=/home/$2
    git bundle create -q "$MACHINES/$1/sources.bundle" HEAD
    chmod 644 "$MACHINES/$1/sources.bundle"
    on "$1" "$2" "mkdir -p '$(dirname "$FOLDER")' && git -c advice.detachedHead=false clone -q /sources.bundle '$FOLDER'"
}

# Whether a gallery was painted that stands there.
paint_gallery() {
    on "$1" "$2" "cd '$FOLDER' && rm -rf build/gallery && ./dev run >run.log 2>&1 </dev/null || { tail -n 30 run.log; exit 1; }
        [ \$(ls build/gallery/*.png | wc -l) -eq 10 ]"
}

say "As root"
new_machine first
give_sources first root
paint_gallery first root

say "As a user with sudo"
new_machine second
on second root "apt-get install -y -qq sudo >/dev/null 2>&1 && useradd -m trader
    echo 'trader ALL=(ALL) NOPASSWD:ALL' >/etc/sudoers.d/trader"
give_sources second trader
paint_gallery second trader
if [ "${1:-}" != quick ]; then
    on second trader "cd '$FOLDER' && ./dev test </dev/null"
fi

say "As a user without sudo, with everything installed"
on second root "rm /etc/sudoers.d/trader /usr/bin/sudo"
paint_gallery second trader

say "From the Debian packages"
./dev package >/dev/null
new_machine third
mkdir "$MACHINES/third/packages"
cp build/package/packages/*.deb samples/bars/SH600030.csv "$MACHINES/third/packages/"
on third root "DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends /packages/*.deb >/dev/null 2>&1
    useradd -m trader"
on third trader "indicatorui-render --bars /packages/SH600030.csv -o chart.png
    ended=0; QT_QPA_PLATFORM=offscreen timeout 5 indicatorui-client /packages/SH600030.csv 2>/dev/null || ended=\$?
    [ \$ended -eq 124 ]"
say "Well walked"
