#!/usr/bin/env bash
# Runs the fuzz targets that the preset `fuzz` has built.
#   scripts/fuzz.sh SECONDS [TARGET...]   all targets, unless some are named
# As many at a time as FUZZ_JOBS or the processors allow. What was learnt stays in build/fuzz/corpus
# for the next run; an input that breaks a promise is kept in build/fuzz/findings.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../build/fuzz"

fuzz() {  # target
  local log=findings/$1.log scratch
  mkdir -p "corpus/$1"
  scratch=$(mktemp -d)
  # Endless or boundless work is a finding as well.
  if TMPDIR=$scratch "targets/$1" "corpus/$1" -max_total_time="$seconds" -timeout=20 \
    -rss_limit_mb=2048 -artifact_prefix="findings/$1-" >"$log" 2>&1; then
    echo "$1: $(grep '^Done' "$log")"
  else
    echo "$1: a finding, see build/fuzz/$log"
    tail -n 40 "$log"
    touch findings/failed
  fi
  rm -rf "$scratch"
}

seconds=$1
shift
(($# > 0)) || { cd targets; set -- *; cd ..; }
mkdir -p findings
rm -f findings/failed
for target in "$@"; do
  while (($(jobs -rp | wc -l) >= ${FUZZ_JOBS:-$(nproc)})); do wait -n; done
  fuzz "$target" &
done
wait
[[ ! -e findings/failed ]]
