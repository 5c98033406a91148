#!/usr/bin/env bash
# Makes packages of a build and tries them. Usage: pack_and_try.sh BUILD_FOLDER COMPILER_FLAGS
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
work=$(mktemp -d -t kyodbc-pack-XXXXXX)
trap 'rm -rf "$work"' EXIT
# Packing for the trial only: small is not wanted, quick is.
cpack --config "$1/CPackConfig.cmake" -B "$work" -D CPACK_DEBIAN_COMPRESSION_TYPE=gzip >"$work/log" 2>&1 ||
  { cat "$work/log" && exit 1; }
"$here/packages.sh" "$work" "$2"
