#!/usr/bin/env bash
# Fuzzes every target for a while under AddressSanitizer and UndefinedBehaviorSanitizer, one after
# another, and fails if one of them finds something.
#
#   scripts/fuzz.sh [seconds for each target, 60] [target ...]
#
# Each starts from the inputs in tests/data/fuzz/<target> and those that earlier runs kept. What a run
# keeps, its log and its findings go below $FUZZ_DIR, or build/fuzz/work. Copy the smallest failing
# input to tests/data/fuzz/<target>, where the ordinary tests replay it.
# An input of up to 4096 bytes that takes longer than a second is a finding.
set -eu
cd "$(dirname "$0")/.."

seconds=${1:-60}
[ $# -eq 0 ] || shift
targets=${*:-predicates edges ring triangulation circle polyline voxelation primitives}
work=${FUZZ_DIR:-$PWD/build/fuzz/work}

scripts/install_packages.sh test check
cmake --preset fuzz
cmake --build --preset fuzz

status=0
for target in $targets; do
  corpus=$work/corpus/$target
  log=$work/$target.log
  findings=$work/findings/$target
  mkdir -p "$corpus" "$findings"
  echo "== $target, $seconds s"
  if ! build/fuzz/fuzz/fuzz_"$target" -max_total_time="$seconds" -max_len=4096 -timeout=1 \
    -rss_limit_mb=2048 -print_final_stats=1 -artifact_prefix="$findings/" \
    "$corpus" tests/data/fuzz/"$target" >"$log" 2>&1; then
    status=1
    echo "   FINDING in $findings, see $log"
  fi
  sed -n 's/^stat::number_of_executed_units: */   executions: /p
          s/^stat::peak_rss_mb: */   peak memory in MB: /p' "$log"
  # The last line of the run tells how much of the program its inputs reach.
  grep -E '^#[0-9]+.* cov: ' "$log" | tail -n 1 | sed -E 's/.* cov: ([0-9]+) .*/   edges reached: \1/'
done
exit $status
