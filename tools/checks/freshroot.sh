# SPDX-License-Identifier: GPL-3.0-or-later
# shellcheck shell=sh
# Sourced by the checks that install into a fresh root: its package sources, and the command that may create it.

# debian_sources FORMAT FILTER... : prints the machine's own sources of the distribution, one per line. They are signed
# with the distribution's keys.
debian_sources() {
    wanted=$(apt-get indextargets --format "$@" 'Created-By: Packages' 'Origin: Debian' \
        "Architecture: $(dpkg --print-architecture)")
    if [ -z "$wanted" ]; then
        as_root apt-get -q update >&2
        wanted=$(apt-get indextargets --format "$@" 'Created-By: Packages' 'Origin: Debian' \
            "Architecture: $(dpkg --print-architecture)")
    fi
    printf '%s\n' "$wanted" | sort -u
}

# root_maker : prints the command that gives mmdebstrap the permissions it needs; fails if there is none.
root_maker() {
    if [ "$(id -u)" -eq 0 ]; then
        echo env
    elif sudo -n true 2>/dev/null; then
        echo "sudo -n"
    elif unshare --user --map-root-user true 2>/dev/null && grep -q "^$(id -un):" /etc/subuid 2>/dev/null; then
        echo env
    else
        return 1
    fi
}
