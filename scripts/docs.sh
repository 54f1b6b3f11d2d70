#!/usr/bin/env bash
# Builds the reference of norq's interface from the comments in its headers, with Doxygen, in
# build/docs/html. Fails if a public name has no comment, or a comment is malformed.
set -eu
CDPATH='' cd -- "$(dirname -- "$0")/.."
. scripts/requirements.sh

need doxygen
install_needs

echo "== Building the reference in build/docs/html"
NORQ_VERSION=$(sed -n 's/^#define NORQ_VERSION_.* //p' include/norq/version.h | paste -sd .)
export NORQ_VERSION
rm -rf build/docs/html
mkdir -p build/docs
doxygen docs/Doxyfile
