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

show ktxsample -explain MSG0137

printf '\n\033[1mBrodan (here a stand-in on the PATH) is asked, and its answers are recorded:\033[0m\n'
PATH="$PWD/brod:$PATH"
mkdir "$work/answers"
export KTXRECORD="$work/answers"
show ktxsample -cmd listing -ini found.out -obj APPS.EDITOR.2.1
unset KTXRECORD
cat "$brdcfg/migr/targets.out" "$brdcfg/migr/found.out" >"$work/from_brodan"

printf '\n\033[1mThe recorded answers are played back:\033[0m\n'
show ktxsample -cmd listing -ini found.out -obj APPS.EDITOR.2.1 -rcmd "dummy $work/answers"
cat "$brdcfg/migr/targets.out" "$brdcfg/migr/found.out" >"$work/from_files"
cmp "$work/from_brodan" "$work/from_files" && printf '\n\033[1mBoth answers are the same.\033[0m\n'

cp data/brod.cfg "$work"
show ktxsample -cmd server -ini out.txt -dir "$work" -srv TORSRV02
printf '\n\033[1mbrod.cfg before and after:\033[0m\n'
cat "$work/brod.bak"
printf -- '----\n'
cat "$work/brod.cfg"

printf '\n\033[1mThe end of the trace, and the log:\033[0m\n'
tail -n 5 "$work/ktx1.trc"
head -n 5 "$work/ktx1.log"

printf '\n\033[1mA scan result file that was cut off, and what its trace says:\033[0m\n'
rm "$work/ktx1.trc"
head -n 40 data/scan.res >"$work/cut.res"
show ktxsample -cmd domains -ini out.txt -file "$work/cut.res" -trc 0
show ktxtrace --failed
show ktxtrace
