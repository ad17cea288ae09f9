#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# Builds the Debian package, validates its parts, installs it with its dependencies into a fresh root and starts it there
# as an ordinary user on a virtual screen. Without permission to create such a root the last two steps are skipped.
# shellcheck disable=SC2016 # hooks and formats have their own variables
set -eu
cd -P "$(dirname "$0")/../.."
. tools/packages.sh
. tools/checks/freshroot.sh

PACKAGE_FOLDER=build/package
DOCUMENTS=build/release/packaging # with the version

build_package() {
    use_preset release
    cmake --build --preset release --target kelvrum makestation documents
    rm -f "$PACKAGE_FOLDER"/*.deb
    cpack --preset deb
}

validate() {
    # The font of the windows, and a library that is loaded when something is printed.
    for needed in fonts-liberation libcups2; do
        if ! dpkg-deb --field "$PACKAGE_FOLDER"/*.deb Depends | grep -q "$needed"; then
            echo "The package does not depend on $needed." >&2
            return 1
        fi
    done
    lintian --fail-on error,warning --allow-root "$PACKAGE_FOLDER"/*.deb
    desktop-file-validate packaging/*.desktop
    appstreamcli validate --no-net "$DOCUMENTS"/*.metainfo.xml
    version=$(dpkg-deb --field "$PACKAGE_FOLDER"/*.deb Version)
    for document in "$DOCUMENTS"/*.metainfo.xml "$DOCUMENTS/kelvrum.1" "$DOCUMENTS/de/kelvrum.1" "$DOCUMENTS/changelog"; do
        if ! grep -qwF "$version" "$document"; then
            echo "$document does not contain the version $version." >&2
            return 1
        fi
    done
    for page in "$DOCUMENTS/kelvrum.1" "$DOCUMENTS/de/kelvrum.1"; do
        warnings=$(LC_ALL=C.UTF-8 man --warnings -E UTF-8 -l -Tutf8 -Z "$page" 2>&1 >/dev/null)
        if [ -n "$warnings" ]; then
            echo "$page: $warnings" >&2
            return 1
        fi
    done
}

install_and_start() {
    list=$PACKAGE_FOLDER/sources.list
    debian_sources 'deb $(REPO_URI) $(RELEASE) $(COMPONENT)' >"$list"
    suite=$(. /etc/os-release && echo "${VERSION_CODENAME:-stable}")
    package=$(echo "$PWD/$PACKAGE_FOLDER"/*.deb)
    # The root exists only while this command runs, which removes it however it ends.
    "$@" mmdebstrap --quiet --variant=apt --format=null --dpkgopt=force-unsafe-io \
        --aptopt='APT::Install-Recommends "0"' \
        --customize-hook="copy-in '$package' /root" \
        --customize-hook='chroot "$1" sh -c "apt-get -qq -y install /root/*.deb"' \
        --customize-hook="'$PWD/tools/checks/installed.sh' \"\$1\"" \
        "$suite" /dev/null "$list"
}

build_package
validate
if maker=$(root_maker); then
    # shellcheck disable=SC2086 # a command of several words
    install_and_start $maker
else
    echo "SKIP: the package is built and valid but was not installed: this needs root, sudo or user namespaces."
fi
