#!/usr/bin/env bash
# Installs the packages into an empty root with dpkg, builds callers' programs on it, runs them, and takes the
# packages away again: nothing may be left. dpkg knows of the packages' dependencies what this machine has.
# Usage: packages.sh FOLDER [COMPILER_FLAGS]
set -euo pipefail
packages=$(realpath "$1")
readonly packages flags=${2:-}
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
project=$(cd "$here/../.." && pwd)
version=$(sed -n 's/^project(KyODBC VERSION \([0-9.]*\).*/\1/p' "$project/CMakeLists.txt")
interface_version=$(($(sed -n 's/^#define KYODBC_INTERFACE_VERSION //p' "$project/frame/KyODBC.h")))
work=$(mktemp -d -t kyodbc-packages-XXXXXX)
trap 'rm -rf "$work"' EXIT
readonly root=$work/root admin=$work/root/var/lib/dpkg
readonly debs=("$packages"/*.deb)
export PATH=$PATH:/usr/sbin:/sbin LC_ALL=C.UTF-8
unset PYTHONDONTWRITEBYTECODE
multiarch=$(dpkg-architecture -qDEB_HOST_MULTIARCH)

fail() { echo "packages.sh: $*" >&2 && exit 1; }
quietly() { "$@" >"$work/log" 2>&1 || { cat "$work/log" && return 1; }; }

# Scripts of packages run here, with DPKG_ROOT telling them where.
on_root() {
  local become=()
  if [[ $(id -u) -ne 0 ]]; then become=(fakeroot); fi
  quietly "${become[@]}" dpkg --instdir="$root" --admindir="$admin" --force-script-chrootless "$@"
  if grep -q warning "$work/log"; then cat "$work/log" && return 1; fi
}

# What the packages depend on, alternatives included.
dependencies() {
  local deb
  for deb in "${debs[@]}"; do dpkg-deb -f "$deb" Depends; done |
    tr ',|' '\n\n' | sed 's/(.*//; s/ //g' | grep -v kyodbc | sort -u
}

# The installed packages of these names, or that provide them.
providers() {
  dpkg-query -W -f '${db:Status-Status} ${Package} ${Provides}\n' | awk -v wanted="$*" '
    BEGIN { split(wanted, list, " "); for (place in list) names[list[place]] }
    $1 == "installed" {
      gsub(/[(][^)]*[)]|,/, "")
      for (i = 2; i <= NF; ++i) if ($i in names) { print $2; break }
    }'
}

readonly there='Package: ${Package}
Status: install ok installed
Maintainer: ${Maintainer}
Architecture: ${Architecture}
Multi-Arch: ${Multi-Arch}
Provides: ${Provides}
Version: ${Version}
Description: there

'
# A root that has of this machine what the packages depend on, as far as dpkg knows.
make_root() {
  mkdir -p "$root/etc" "$admin/info" "$admin/updates"
  printf '[Other]\nDriver=libother.so\nUsageCount=1\n\n' >"$root/etc/odbcinst.ini"
  dpkg-query -W -f "$there" $(providers $(dependencies)) |
    sed '/^Multi-Arch: $/d; /^Provides: $/d' >"$admin/status"
  echo 1 >"$admin/info/format"
  local name
  for name in $(dpkg-query --admindir="$admin" -W -f '${binary:Package}\n' 2>/dev/null); do
    touch "$admin/info/$name.list"
  done
}

# Every file, link and folder, and what is in it; dpkg keeps a copy of its own state of yesterday.
contents() {
  (cd "$root" && find . ! -path './var/lib/dpkg/status*' ! -path './var/lib/dpkg/*lock*' ! -path \
    './var/lib/dpkg/triggers*' -printf '%p %y %m %l\n' | sort && find etc -type f -exec sha256sum {} +)
  dpkg-query --admindir="$admin" -W -f '${Package} ${Status}\n'
}

make_root
contents >"$work/before"
on_root --install "${debs[@]}"
echo "installed: $(cd "$packages" && echo *.deb)"

usr=$root/usr
for file in lib/$multiarch/libKyODBC.so.1 lib/$multiarch/libKyODBC.so include/KyODBC.h bin/kyodbc \
  share/man/man1/kyodbc.1.gz share/man/man3/kyodbc.3.gz share/man/man7/libkyfault.7.gz \
  share/bash-completion/completions/kyodbc lib/$multiarch/odbc/libkyfault.so \
  lib/python3/dist-packages/kyodbc/__init__.py share/kyodbc/schema/postgresql.sql \
  share/doc/kyodbc-tools/docs/databases.md share/doc/kyodbc-tools/docs/guide/getting-started.md; do
  [[ -e $usr/$file ]] || fail "/usr/$file is missing"
done
for package in libkyodbc1 libkyodbc-dev kyodbc-tools libkyfault; do
  installed=$(dpkg-query --admindir="$admin" -W -f '${Version}' "$package")
  [[ $installed == "$version" ]] || fail "$package has the version $installed"
  [[ -s $usr/share/doc/$package/copyright ]] || fail "$package: no copyright"
done
echo "every thing is in its place"

ODBCSYSINI=$root/etc odbcinst -q -d | sort >"$work/drivers"
diff - "$work/drivers" <<<"[KyFaultW]
[KyFault]
[Other]"
echo "the fault drivers are registered"

export LD_LIBRARY_PATH=$usr/lib/$multiarch
quietly cmake -S "$here" -B "$work/user" -G Ninja -DCMAKE_PREFIX_PATH="$usr" \
  -DCMAKE_C_FLAGS="$flags" -DCMAKE_CXX_FLAGS="$flags" -DEXPECTED_VERSION="$version" \
  -DEXPECTED_INTERFACE_VERSION="$interface_version"
quietly cmake --build "$work/user"
"$work/user/user_c"
"$work/user/user_cpp"
echo "found by CMake: works"

# As when a caller is packed: its dependency comes from the symbols file of the library's package.
mkdir -p "$work/caller/debian"
printf 'Source: caller\n\nPackage: caller\nArchitecture: any\n' >"$work/caller/debian/control"
dpkg-deb -R "$packages"/libkyodbc1_*.deb "$work/caller/debian/libkyodbc1"
cd "$work/caller"
dpkg-shlibdeps -Sdebian/libkyodbc1 -O "$work/user/user_c" >"$work/depends" 2>"$work/log" ||
  fail "$(cat "$work/log")"
cd "$work"
grep -q 'libkyodbc1 (>= 1\.5\.0)' "$work/depends" || fail "a caller depends on: $(cat "$work/depends")"
echo "a caller's package depends on libkyodbc1"

export PKG_CONFIG_PATH=$usr/lib/$multiarch/pkgconfig
[[ $(pkg-config --modversion kyodbc) == "$version" ]] || fail "pkg-config: version"
told=$(pkg-config --variable=interface_version kyodbc)
[[ $told == "$interface_version" ]] || fail "pkg-config tells the interface version $told"
read -ra compile <<<"$flags $(pkg-config --cflags kyodbc)"
read -ra link <<<"$(pkg-config --libs kyodbc)"
cc -std=c11 "${compile[@]}" "$here/user.c" -o "$work/user_c" "${link[@]}"
c++ -std=c++20 "${compile[@]}" "$project/examples/browse.cpp" -o "$work/browse" "${link[@]}"
"$work/user_c"
echo "found by pkg-config: works"

# Drivers that are unloaded leave memory behind, which is not looked at here.
export ASAN_OPTIONS=${ASAN_OPTIONS:+$ASAN_OPTIONS:}detect_leaks=0
"$usr/bin/kyodbc" init "$work/practice" >/dev/null
"$usr/bin/kyodbc" sample "$work/practice" --patients 40 >/dev/null
on_practice() { ODBCSYSINI=$work/practice ODBCINI=$work/practice/odbc.ini "$@" practice; }
on_practice "$work/browse" | grep -q '^M.*, ' || fail "no patients in the practice of the installed program"
on_practice "$work/user/outside"
echo "callers work on a practice of the installed program"

preload=()
case $flags in
  *-fsanitize=address*) preload=("LD_PRELOAD=$(cc -print-file-name=libasan.so)") ;;
esac
env "${preload[@]}" PYTHONPATH="$usr/lib/python3/dist-packages" python3 -c \
  'import kyodbc; assert kyodbc.load().DB_CheckVersion(kyodbc.KYODBC_INTERFACE_VERSION, None)'
[[ -d $usr/lib/python3/dist-packages/kyodbc/__pycache__ ]] || fail "Python compiled nothing"
echo "the package for Python: found"

on_root --purge libkyodbc-dev kyodbc-tools libkyfault libkyodbc1
contents >"$work/after"
diff "$work/before" "$work/after"
echo "taken away without a trace"
