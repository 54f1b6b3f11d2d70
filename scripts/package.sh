#!/usr/bin/env bash
# Makes the Debian packages libnorq1.0 and libnorq-dev in build/packages and looks them over with
# lintian. With the argument "try" it installs them as well, builds a program with them, and removes
# them again.
set -eu
CDPATH='' cd -- "$(dirname -- "$0")/.."
. scripts/requirements.sh

need_build_tools
need dpkg-dev command -v dpkg-shlibdeps
need file command -v file
need lintian command -v lintian
install_needs

echo "== Building the packages in build/packages"
libdir=lib/$(dpkg-architecture -qDEB_HOST_MULTIARCH)
cmake -S . -B build/packages -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX=/usr \
  -DCMAKE_INSTALL_LIBDIR="$libdir" -DBUILD_SHARED_LIBS=ON -DNORQ_PACKAGES=ON \
  -DNORQ_WARNINGS_AS_ERRORS=ON -DNORQ_BUILD_TESTS=OFF -DNORQ_BUILD_EXAMPLES=OFF
cmake --build build/packages --parallel "$(nproc)"
rm -f build/packages/*.deb
(cd build/packages && cpack)
lintian --allow-root --fail-on error build/packages/*.deb

[ "${1:-}" = try ] || exit 0
echo "== Trying the packages"
as_root=()
[ "$(id -u)" -eq 0 ] || as_root=(sudo)
trap '"${as_root[@]}" dpkg --purge libnorq-dev libnorq1.0' EXIT
"${as_root[@]}" dpkg --install build/packages/*.deb
cmake -S tests/consumer -B build/packaged -DNORQ_BY=find \
  -DNORQ_PROGRAM="$PWD/examples/minimal.cc"
cmake --build build/packaged
build/packaged/consumer -name=packages
