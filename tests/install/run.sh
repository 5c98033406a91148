#!/usr/bin/env bash
# Installs a build into an empty folder and builds callers' programs on it, once found by CMake and once by
# pkg-config. Usage: run.sh BUILD_FOLDER LIBRARY_FOLDER COMPILER_FLAGS
set -euo pipefail
readonly build=$1 libraries=$2 flags=$3
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

quietly() { "$@" >"$work/log" 2>&1 || { cat "$work/log" && return 1; }; }

quietly cmake --install "$build" --prefix "$work/prefix"

quietly cmake -S "$here" -B "$work/user" -G Ninja -DCMAKE_PREFIX_PATH="$work/prefix" \
  -DCMAKE_C_FLAGS="$flags" -DCMAKE_CXX_FLAGS="$flags"
quietly cmake --build "$work/user"
"$work/user/user_c"
"$work/user/user_cpp"
echo "found by CMake: works"

export PKG_CONFIG_PATH=$work/prefix/$libraries/pkgconfig LD_LIBRARY_PATH=$work/prefix/$libraries
read -ra compile <<<"$flags $(pkg-config --define-prefix --cflags kyodbc)"
read -ra link <<<"$(pkg-config --define-prefix --libs kyodbc)"
cc -std=c11 "${compile[@]}" "$here/user.c" -o "$work/user_c" "${link[@]}"
c++ -std=c++20 "${compile[@]}" "$here/user.cpp" -o "$work/user_cpp" "${link[@]}"
"$work/user_c"
"$work/user_cpp"
echo "found by pkg-config: works"

"$work/prefix/bin/kyodbc" --help >/dev/null
echo "the companion program runs from its folder"
