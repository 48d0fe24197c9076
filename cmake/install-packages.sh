#!/usr/bin/env bash
# Installs the Debian packages of the named groups that are missing: build, test, check, bench, reference.
# Needs root or sudo only if something is missing.
set -euo pipefail

build="cmake ninja-build ccache g++ pkg-config qt6-base-dev libpugixml-dev liblcms2-dev
       libjpeg-dev libxcb1-dev qt6-image-formats-plugins libqt6svg6 fonts-noto-core
       fonts-liberation fonts-dejavu-core fonts-ipafont-gothic"
test="poppler-utils libgtest-dev libgmock-dev xvfb xauth x11-utils openbox xdotool xclip imagemagick
      dbus at-spi2-core gir1.2-atspi-2.0 python3-gi"
check="clang-format-14 clang-tidy-14 clang-14 libclang-rt-14-dev"
bench="libbenchmark-dev libqcustomplot-dev python3"
reference="doxygen"

packages=""
for group in "$@"; do packages+=" ${!group}"; done

missing=""
for package in $packages; do
  [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || missing+=" $package"
done
[ -n "$missing" ] || exit 0

if [ "$(id -u)" -eq 0 ]; then as_root=""
elif command -v sudo >/dev/null; then as_root="sudo"
else
  echo "These packages are missing and need root to install:$missing" >&2
  exit 1
fi
echo "Installing:$missing" >&2
$as_root apt-get update -qq >&2
# shellcheck disable=SC2086
$as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $missing >&2
