#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# Checks the project on Debian 13: creates a fresh root of that release, copies this tree into it and runs the given
# commands there, by default ./run.sh and ./test.sh.
#     tools/checks/debian13.sh [COMMAND...]     for example 'cmake --preset debug' 'cmake --build --preset debug'
# Needs mmdebstrap, permission to create a root (root, sudo or user namespaces), the machine's own mirror of the
# distribution, 8 GB in TMPDIR (or /tmp) and half an hour or more. Installs nothing outside that root, which is always removed
# at the end.
# shellcheck disable=SC2016 # hooks and formats have their own variables
set -eu
cd -P "$(dirname "$0")/../.."
. tools/packages.sh
. tools/checks/freshroot.sh

SUITE=trixie

command -v mmdebstrap >/dev/null || {
    echo "debian13.sh: mmdebstrap is missing (package mmdebstrap)." >&2
    exit 1
}
maker=$(root_maker) || {
    echo "debian13.sh: needs root, sudo or user namespaces." >&2
    exit 1
}
mirror=$(debian_sources '$(REPO_URI)' 'Label: Debian' | head -n 1)
[ -n "$mirror" ] || {
    echo "debian13.sh: the machine has no source of the distribution." >&2
    exit 1
}

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
trap 'exit 1' HUP INT TERM
git ls-files -z | tar --create --file="$scratch/tree.tar" --null --files-from=-
[ $# -gt 0 ] || set -- ./run.sh ./test.sh
{
    echo "set -eux"
    echo "cd /srv/kelvrum"
    printf '%s\n' "$@"
} >"$scratch/commands"

began=$(date +%s)
# Without a terminal and without this machine's display.
$maker env -u DISPLAY -u WAYLAND_DISPLAY mmdebstrap --quiet --variant=apt --format=null --dpkgopt=force-unsafe-io \
    --aptopt='APT::Install-Recommends "0"' \
    --aptopt='Acquire::Retries "3"' \
    --customize-hook='mkdir -p "$1/srv/kelvrum"' \
    --customize-hook="tar --extract --file='$scratch/tree.tar' --directory=\"\$1/srv/kelvrum\"" \
    --customize-hook="chroot \"\$1\" env HOME=/root sh -s <'$scratch/commands'" \
    "$SUITE" /dev/null "deb $mirror $SUITE main"
echo "On Debian 13, all well after $(($(date +%s) - began)) s: $*"
