#!/usr/bin/env bash
# Fuzzes every target for a while under AddressSanitizer and UndefinedBehaviorSanitizer.
#
#   scripts/fuzz.sh [seconds for each target, 60] [target ...]
#
# Inputs found on the way are kept below build/fuzz/corpus, failing ones below build/fuzz/findings: copy
# the smallest failing one to tests/data/fuzz/<target>, where the ordinary tests replay it.
# An input of up to 4096 bytes that takes longer than a second is a finding.
set -eu
cd "$(dirname "$0")/.."

seconds=${1:-60}
[ $# -eq 0 ] || shift
targets=${*:-predicates edges ring triangulation circle polyline voxelation primitives}

scripts/install_packages.sh test check
cmake --preset fuzz
cmake --build --preset fuzz --parallel

findings=$PWD/build/fuzz/findings
mkdir -p "$findings"
status=0
for target in $targets; do
  corpus=build/fuzz/corpus/$target
  mkdir -p "$corpus"
  log=build/fuzz/$target.log
  echo "== $target, $seconds s"
  if ! build/fuzz/fuzz/fuzz_"$target" -max_total_time="$seconds" -max_len=4096 -timeout=1 \
    -rss_limit_mb=2048 -print_final_stats=1 -artifact_prefix="$findings/$target-" \
    "$corpus" tests/data/fuzz/"$target" >"$log" 2>&1; then
    status=1
    echo "   FINDING, see $log"
  fi
  grep -E 'stat::number_of_executed_units|stat::peak_rss_mb' "$log" | sed 's/^/   /'
done
exit $status
