# Shared by the scripts: checks the owner of build/, installs packages, prints progress. Source it
# in the project's folder.
#
#     need cmake                                   # unless this command exists
#     need libgtest-dev has_header gtest/gtest.h   # unless this check succeeds
#     install_needs

# shellcheck shell=bash

mkdir -p build
foreign=$(find build/ -maxdepth 1 ! -user "$(id -u)" -print -quit)
if [ -n "$foreign" ]; then
  echo "$foreign belongs to $(stat -c '%U (uid %u)' "$foreign"), but this script runs as" \
    "$(id -un). Remove $foreign, with sudo if necessary, or run the script as its owner." >&2
  exit 1
fi

missing_packages=()

need() {
  local package=$1
  shift
  [ $# -gt 0 ] || set -- command -v "$package"
  "$@" >/dev/null 2>&1 || missing_packages+=("$package")
}

has_header() { echo "#include <$1>" | "${CXX:-c++}" -E -x c++ -; }

# can_link COMPILER FLAG...
can_link() { printf '#include <string>\nint main() {}\n' | "$@" -x c++ -o build/linked -; }

need_build_tools() {
  need g++ command -v "${CXX:-c++}"
  need cmake
  need make
}

need_test_tools() {
  need_build_tools
  need libgtest-dev has_header gtest/gtest.h
  need pkgconf command -v pkg-config
}

stop() {
  echo "Cannot install ${missing_packages[*]}: $1. Please install these packages, or their" \
    "equivalents, and run this script again." >&2
  exit 1
}

install_needs() {
  [ ${#missing_packages[@]} -eq 0 ] && return
  command -v apt-get >/dev/null || stop "apt-get is missing"
  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || stop "installing needs root or sudo"
    as_root=(sudo)
  fi
  echo "== Installing ${missing_packages[*]}" \
    "(about half a minute on a fast network; log: build/install.log)"
  if ! never_silent run_apt; then
    cat build/install.log >&2
    stop "apt-get failed; see its output above or in build/install.log"
  fi
  missing_packages=()
}

# Ignores failed updates: a package list that cannot be updated, such as another vendor's, may not
# be needed.
run_apt() {
  "${as_root[@]}" apt-get -q update
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get -q install --yes --no-install-recommends "${missing_packages[@]}"
} >build/install.log 2>&1

# Runs a command and prints a line whenever it has been silent for 10 seconds.
never_silent() {
  "$@" | {
    local line status=0
    until [ "$status" -eq 1 ]; do  # 0: a line, 1: end of input, more: no input for 10 seconds
      status=0
      IFS= read -r -t 10 line || status=$?
      case $status in
        0) printf '%s\n' "$line" ;;
        1) printf '%s' "$line" ;;
        *) printf '%s... still working after %d seconds\n' "$line" "$SECONDS" ;;
      esac
    done
  }
  return "${PIPESTATUS[0]}"
}
