#!/bin/sh
# Builds the Debian package, has its parts validated, installs it with all it depends on into a fresh root and starts
# it there as an ordinary user on a virtual screen. Without the right to make such a root the last two are skipped.
set -eu
cd -P "$(dirname "$0")/../.."
. tools/packages.sh

PACKAGE_FOLDER=build/package

build_package() {
    use_preset release
    cmake --build --preset release --target kelvrum makestation documents
    rm -f "$PACKAGE_FOLDER"/*.deb
    cpack --preset deb
}

validate() {
    lintian --fail-on error,warning --allow-root "$PACKAGE_FOLDER"/*.deb
    desktop-file-validate packaging/*.desktop
    appstreamcli validate --no-net packaging/*.metainfo.xml
    for page in packaging/kelvrum.1 packaging/de/kelvrum.1; do
        warnings=$(LC_ALL=C.UTF-8 man --warnings -E UTF-8 -l -Tutf8 -Z "$page" 2>&1 >/dev/null)
        if [ -n "$warnings" ]; then
            echo "$page: $warnings" >&2
            return 1
        fi
    done
}

# The machine's own sources of the distribution, one a line. Their keys are the distribution's.
sources() {
    apt-get indextargets --format 'deb $(REPO_URI) $(RELEASE) $(COMPONENT)' \
        'Created-By: Packages' 'Origin: Debian' "Architecture: $(dpkg --print-architecture)" | sort -u
}

install_and_start() {
    list=$PACKAGE_FOLDER/sources.list
    sources >"$list"
    if [ ! -s "$list" ]; then
        as_root apt-get -q update
        sources >"$list"
    fi
    suite=$(. /etc/os-release && echo "${VERSION_CODENAME:-stable}")
    package=$(echo "$PWD/$PACKAGE_FOLDER"/*.deb)
    # The root lives only as long as this command, which removes it however it ends.
    "$@" mmdebstrap --quiet --variant=apt --format=null --dpkgopt=force-unsafe-io \
        --aptopt='APT::Install-Recommends "0"' \
        --include=fonts-liberation \
        --customize-hook="copy-in '$package' /root" \
        --customize-hook='chroot "$1" sh -c "apt-get -qq -y install /root/*.deb"' \
        --customize-hook="'$PWD/tools/checks/installed.sh' \"\$1\"" \
        "$suite" /dev/null "$list"
}

build_package
validate
if [ "$(id -u)" -eq 0 ]; then
    install_and_start env
elif sudo -n true 2>/dev/null; then
    install_and_start sudo -n
elif unshare --user --map-root-user true 2>/dev/null && grep -q "^$(id -un):" /etc/subuid 2>/dev/null; then
    install_and_start env
else
    echo "SKIP: the package is built and valid, but not installed: neither root nor sudo nor user namespaces here."
fi
