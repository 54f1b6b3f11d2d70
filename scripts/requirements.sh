# Installs what a script of this project needs. To be sourced.
#
#     need cmake command -v cmake    # the package cmake, unless `command -v cmake` succeeds
#     install_needs

missing_packages=()

need() {
  local package=$1
  shift
  "$@" >/dev/null 2>&1 || missing_packages+=("$package")
}

has_googletest() { echo '#include <gtest/gtest.h>' | "${CXX:-c++}" -E -x c++ -; }

need_build_tools() {
  need g++ command -v "${CXX:-c++}"
  need cmake command -v cmake
  need make command -v make
}

stop() {
  echo "$1" >&2
  echo "Please install these packages, or what your system calls them, and run this again:" >&2
  echo "  ${missing_packages[*]}" >&2
  exit 1
}

install_needs() {
  [ ${#missing_packages[@]} -eq 0 ] && return
  [ -e /etc/debian_version ] && command -v apt-get >/dev/null ||
    stop "This is no Debian system, so what is missing cannot be installed from here."
  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || stop "Installing what is missing takes root or sudo."
    as_root=(sudo)
  fi
  echo "== Installing ${missing_packages[*]}"
  "${as_root[@]}" apt-get -q update &&
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
      apt-get -q install --yes --no-install-recommends "${missing_packages[@]}" ||
    stop "Installing what is missing failed."
  missing_packages=()
}
