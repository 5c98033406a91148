#!/usr/bin/env bash
# Installs a build into an empty folder and builds callers' programs on it, once found by CMake and once by
# pkg-config. One of them has a record set of its own and runs on a practice of each database at hand.
# Usage: run.sh BUILD_FOLDER LIBRARY_FOLDER COMPILER_FLAGS WITH_PRACTICE
set -euo pipefail
readonly build=$1 libraries=$2 flags=$3 with_practice=$4
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

# The one that the tests are for, else every one that can be reached.
kinds=${KYODBC_TEST_DB:-sqlite${KYODBC_TEST_SERVERS:+ postgresql mariadb}}
for kind in $kinds; do
  # Drivers that are unloaded leave memory behind, which is not looked at here.
  KYODBC_TEST_DB=$kind ASAN_OPTIONS=${ASAN_OPTIONS:+$ASAN_OPTIONS:}detect_leaks=0 \
    "$with_practice" "$work/user/outside"
  echo "a record set of the caller's own on $kind: works"
done

(cd "$work/prefix/include" && find . -name '*.h' | sort | sed 's/.*/#include "&"/') >"$work/all.cpp"
c++ -std=c++20 -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror -fsyntax-only \
  -I"$work/prefix/include" "$work/all.cpp"
echo "$(wc -l <"$work/all.cpp") installed headers: complete"

PYTHONPATH=$work/prefix/lib/python3/dist-packages \
  python3 -B -c 'import kyodbc; kyodbc.tagTPATIENT(szName="x")'
echo "the package for Python: found"

export PKG_CONFIG_PATH=$work/prefix/$libraries/pkgconfig LD_LIBRARY_PATH=$work/prefix/$libraries
read -ra compile <<<"$flags $(pkg-config --cflags kyodbc)"
read -ra link <<<"$(pkg-config --libs kyodbc)"
cc -std=c11 "${compile[@]}" "$here/user.c" -o "$work/user_c" "${link[@]}"
c++ -std=c++20 "${compile[@]}" "$here/user.cpp" -o "$work/user_cpp" "${link[@]}"
"$work/user_c"
"$work/user_cpp"
echo "found by pkg-config: works"

"$work/prefix/bin/kyodbc" --help >/dev/null
echo "the companion program runs from its folder"
