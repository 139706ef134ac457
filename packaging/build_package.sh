#!/usr/bin/env bash
# Makes the Debian package of the last commit in a clean root: build_package.sh SUITE FOLDER
# It is built twice, at two places and in two time zones, and must be the same both times. Needs
# mmdebstrap, the network, and root or user namespaces.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
readonly suite=$1 folder=$2

source=$(mktemp -d)
trap 'rm -rf "$source"' EXIT
git archive HEAD | tar --extract --directory "$source"
cp -r "$source/packaging/deb" "$source/debian"
version=$(sed -n 's/^project(Orvane VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
cat >"$source/debian/changelog" <<TEXT
orvane ($version-1) unstable; urgency=medium

  * What changed is told in changelog.gz.

 -- The Orvane team <support@orvane.example>  $(git log -1 --format=%cD)
TEXT

cat >"$source/build_twice.sh" <<'SCRIPT'
set -eu
build() {
  mkdir -p "$1"
  cp -r /srv/orvane "$1/orvane"
  # Without what only debuggers read: it is no part of the package.
  (cd "$1/orvane" && TZ=$2 DEB_CXXFLAGS_STRIP=-g DEB_BUILD_OPTIONS=noautodbgsym \
    dpkg-buildpackage --no-sign --build=binary)
}
cd /srv/orvane
chmod -R u=rwX,go=rX .
apt-get build-dep -y -q --no-install-recommends ./
build /srv/first UTC
build /srv/the/second Asia/Tokyo
cmp /srv/first/orvane_*.deb /srv/the/second/orvane_*.deb
echo "the package is the same both times"
lintian --fail-on error --tag-display-limit 0 /srv/first/*.changes
SCRIPT

mkdir -p "$folder"
# shellcheck disable=SC2016  # "$1" is the root, for mmdebstrap's shell
mmdebstrap --quiet --variant=buildd --dpkgopt=force-unsafe-io --include=ca-certificates,lintian \
  --customize-hook="copy-in $source /srv" \
  --customize-hook="mv \"\$1/srv/$(basename "$source")\" \"\$1/srv/orvane\"" \
  --customize-hook='chroot "$1" env DEBIAN_FRONTEND=noninteractive sh /srv/orvane/build_twice.sh >&2' \
  --customize-hook='cd "$1/srv/first" && mv orvane_*.deb package.deb' \
  --customize-hook="download /srv/first/package.deb $folder/orvane_${version}_$suite.deb" \
  "$suite" /dev/null
printf '%s\n' "$folder/orvane_${version}_$suite.deb"
