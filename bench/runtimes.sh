# The end of `./dev bench`: reading lines beside what other runtimes have for it, each in a build of its own. Sourced by
# `dev`, whose functions it uses. The arguments of bench_reading are the ratios wanted.
compare_reading() {
  preset=$1
  program=$2
  shift 2
  build "$preset" -D ORVET_LOAD=ON -D CMAKE_BUILD_TYPE=Release
  printf '\n%s\n' "$preset"
  (cd "build/$preset/bin" && KTXPATH=. $program "$@")
}

need googletest clang libc++-dev libc++abi-dev g++-mingw-w64-x86-64-posix wine64
start_wine
compare_reading libcxx ./bench_reading 0.7 1 2
compare_reading windows "/usr/lib/wine/wine64 bench_reading.exe" 0.4 0.25 2
compare_reading ucrt "/usr/lib/wine/wine64 bench_reading.exe" 0.4 0.25 2
