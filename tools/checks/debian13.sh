#!/bin/sh
# Proves on Debian 13 what ./test.sh proves here: makes a fresh root of that release, lays a copy of this tree into it
# and runs commands there, ./run.sh and ./test.sh when none are given.
#     tools/checks/debian13.sh [COMMAND...]     for example 'cmake --preset clang' 'cmake --build --preset clang'
# Needs mmdebstrap, the right to make a root (root, sudo or user namespaces), the machine's own mirror of the
# distribution, 8 GB below TMPDIR (or /tmp) and an hour or more. Installs nothing outside of that root, which is removed
# at the end however it comes.
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
    echo "debian13.sh: neither root nor sudo nor user namespaces here." >&2
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
    echo "cd /root/kelvrum"
    printf '%s\n' "$@"
} >"$scratch/commands"

began=$(date +%s)
# Without a terminal and without a display of this machine.
$maker env -u DISPLAY -u WAYLAND_DISPLAY mmdebstrap --quiet --variant=apt --format=null --dpkgopt=force-unsafe-io \
    --aptopt='APT::Install-Recommends "0"' \
    --aptopt='Acquire::Retries "3"' \
    --customize-hook='mkdir -p "$1/root/kelvrum"' \
    --customize-hook="tar --extract --file='$scratch/tree.tar' --directory=\"\$1/root/kelvrum\"" \
    --customize-hook="chroot \"\$1\" env HOME=/root sh -s <'$scratch/commands'" \
    "$SUITE" /dev/null "deb $mirror $SUITE main"
echo "On Debian 13, all well after $(($(date +%s) - began)) s: $*"
