#!/bin/sh
# Shows what the sample tool does on the data beside this script. Takes the directory of the built programs.
set -eu
bin=$(cd "$1" && pwd)
cd "$(dirname "$0")"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

export KTXPATH="$work" KTXWORK="$work" brdcfg="$work/brodan" ktxrmtf=no
mkdir -p "$brdcfg/migr"

show() {
  printf '\n\033[1m$ %s\033[0m\n' "$*"
  "$bin/$@" || echo "(exit value $?)"
}

show ktxsample -cmd domains -ini out.txt -file data/scan.res -trc 1
for kind in agents profiles users; do
  show ktxsample -cmd records -ini out.txt -obj $kind -file data/$kind.txt
done
show ktxsample -cmd records -ini out.txt -obj users -file data/users_bad.txt

printf '\n\033[1mThe end of the trace, and the log:\033[0m\n'
tail -n 5 "$work/ktx1.trc"
head -n 5 "$work/ktx1.log"
