#!/usr/bin/env bash
# package.sh installed|subdirectory|debian|hardening BUILD_TREE WORK_DIRECTORY: what a stranger does
# with the library, or finds in it. WORK_DIRECTORY is kept, and what was built there is not built again.
set -euo pipefail
source=$(cd "$(dirname "$0")/../.." && pwd)
consumer=$source/tests/package/consumer
build=$2
work=$3
prefix=$work/prefix
mkdir -p "$work"

fail() { printf '%s\n' "$*"; exit 1; }

# quietly COMMAND...: what it says is of interest only where it fails.
quietly() {
  local output
  output=$("$@" 2>&1) || fail "$* failed: $output"
}

# greets COMMAND...: the consumer catches a failure of the library, and has the version it asked for.
greets() {
  local output
  output=$("$@") || fail "$1 failed: $output"
  [[ $output == *'char at position 1 [1x]'*'version 9' ]] || fail "$1 says: $output"
}

# configure NAME ARGUMENT...: a build tree of the consumer.
configure() {
  quietly cmake -S "$consumer" -B "$work/$1" -G Ninja "${@:2}"
  quietly cmake --build "$work/$1" --parallel 2
  greets "$work/$1/consumer"
}

installed() {
  rm -rf "$prefix"
  quietly cmake --install "$build" --prefix "$prefix"
  local library
  library=$(find "$prefix" -name libZqXmlLib9U.so)
  readelf --dynamic "$library" | grep -q 'soname: \[libZqXmlLib9U.so.9\]' || fail "soname of $library"
  configure found -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_BUILD_TYPE=Debug

  # The .pc file is found where the tree was moved to.
  rm -rf "$work/moved" && cp -a "$prefix" "$work/moved"
  library=${library/$prefix/$work\/moved}
  export PKG_CONFIG_PATH=${library%/*}/pkgconfig
  quietly c++ -std=c++20 "$consumer/main.cpp" -o "$work/configured" \
    $(pkg-config --cflags --libs zqxmllib9)
  greets env LD_LIBRARY_PATH="${library%/*}" "$work/configured"

  [[ $(gdb -batch -nx -ex 'python print("can")' -ex run true 2>&1) == *can*'exited normally'* ]] \
    || { echo "no gdb with Python that may run a program"; return 0; }
  local expected=$source/tests/package/printers.txt shown=()
  for expression in $(cut -d'|' -f1 "$expected"); do
    shown+=(-ex "echo $expression|" -ex "output $expression" -ex 'echo \n')
  done
  # Beyond the installed prefix, gdb only has to be told that it may trust it.
  gdb -batch -nx -iex "add-auto-load-scripts-directory $prefix/share/gdb/auto-load" \
    -iex "add-auto-load-safe-path $prefix" -ex 'break Stop' -ex run -ex up "${shown[@]}" \
    "$work/found/consumer" 2>&1 | sed -n '/^[a-zA-Z]*|/,$p' | sed 's/0x[0-9a-f]*/0x/' \
    > "$work/shown.txt"
  diff "$expected" "$work/shown.txt"
}

subdirectory() { configure subdirectory -DLIBRARY_SOURCES="$source"; }

# holds PACKAGE PATTERN...: a Debian package has files of these names.
holds() {
  local list
  list=$(dpkg-deb --contents "$work/debs/$1"_*.deb)
  for file in "${@:2}"; do grep -qE "$file( -> .*)?$" <<< "$list" || fail "$1 lacks $file: $list"; done
}

debian() {
  command -v dpkg-shlibdeps >/dev/null || { echo "no dpkg-shlibdeps"; return 0; }
  rm -rf "$work/debs"
  quietly cpack --config "$build/CPackConfig.cmake" -G DEB -B "$work/debs"
  holds libzqxmllib9u9 '/usr/lib/[^/]+/libZqXmlLib9U.so.9' \
    '/usr/share/gdb/auto-load/usr/lib/[^/]+/libZqXmlLib9U.so.9.0.0-gdb.py'
  holds libzqxmllib9u-dev /libZqXmlLib9U.so /ZqXmlLib9.h /zqxmllib9.pc /ZqXmlLib9Config.cmake
  dpkg-deb --field "$work/debs"/libzqxmllib9u9_*.deb Depends | grep -q libpcre2 || fail "dependencies"
}

hardening() {
  local facts
  facts=$(readelf --wide --dynamic --program-headers --dyn-syms "$build/libZqXmlLib9U.so")
  for fact in BIND_NOW GNU_RELRO 'GNU_STACK.* RW ' __stack_chk_fail '__[a-z]+_chk@'; do
    grep -qE "$fact" <<< "$facts" || fail "the library lacks $fact"
  done
}

"$1"
