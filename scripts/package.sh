#!/usr/bin/env bash
# Builds the Debian packages libnorq1.0 and libnorq-dev in build/packages and fails if lintian
# reports anything. With the argument "try" it also extracts them to build/packages/root and builds
# and runs a program with them. Nothing is installed.
set -eu
umask 022  # determines the permissions of folders in the packages
CDPATH='' cd -- "$(dirname -- "$0")/.."
. scripts/requirements.sh

need_build_tools
need dpkg-dev command -v dpkg-shlibdeps
need lintian
install_needs

echo "== Building the packages in build/packages"
libdir=lib/$(dpkg-architecture -qDEB_HOST_MULTIARCH)
cmake -S . -B build/packages -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX=/usr \
  -DCMAKE_INSTALL_LIBDIR="$libdir" -DBUILD_SHARED_LIBS=ON -DNORQ_PACKAGES=ON \
  -DNORQ_WARNINGS_AS_ERRORS=ON -DNORQ_BUILD_TESTS=OFF -DNORQ_BUILD_EXAMPLES=OFF
cmake --build build/packages --parallel "$(nproc)"

# cpack could determine the dependencies itself, but would then add scripts that call ldconfig.
cd build/packages
mkdir -p debian DEBIAN  # where dpkg-shlibdeps expects a package
touch debian/control
depends=$(dpkg-shlibdeps -O ./libnorq.so)
rm -f ./*.deb
cpack -D CPACK_DEBIAN_RUNTIME_PACKAGE_DEPENDS="${depends#shlibs:Depends=}"

echo "== Checking the packages with lintian"
if ! lintian --allow-root ./*.deb >lintian.log 2>&1 || [ -s lintian.log ]; then
  cat lintian.log
  exit 1
fi

[ "${1:-}" = try ] || exit 0
echo "== Trying the packages in build/packages/root"
rm -rf root consumer
for package in ./*.deb; do dpkg-deb --extract "$package" root; done
mkdir consumer
cat >consumer/CMakeLists.txt <<'END'
cmake_minimum_required(VERSION 3.16)
project(consumer LANGUAGES CXX)
find_package(norq 1.0 REQUIRED)
add_executable(consumer ../../../examples/minimal.cc)
target_link_libraries(consumer PRIVATE norq::norq)
END
cmake -S consumer -B consumer -DCMAKE_PREFIX_PATH="$PWD/root/usr"
cmake --build consumer
consumer/consumer -name=packages
