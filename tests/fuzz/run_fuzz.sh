#!/bin/sh
# Runs every fuzz target built in BUILD_DIR (default build/fuzz/tests/fuzz)
# for a share of TOTAL_SECONDS (default 60), starting from the seeds in
# tests/fuzz/corpus/<target>/. New inputs and any crash go to a scratch folder,
# never into the source tree. Fails on the first target that finds a crash,
# a hang, a leak or an allocation above 256 MB.
set -eu

here=$(cd "$(dirname "$0")" && pwd)
build=${1:-build/fuzz/tests/fuzz}
total=${2:-60}

targets=$(find "$build" -maxdepth 1 -type f -name '*_fuzz' -perm -u+x | sort)
if [ -z "$targets" ]; then
    echo "run_fuzz.sh: no fuzz targets in $build" >&2
    exit 1
fi
count=$(echo "$targets" | wc -l)
each=$((total / count))
[ "$each" -ge 10 ] || each=10

scratch=$(mktemp -d "${TMPDIR:-/tmp}/quorvel_fuzz.XXXXXX")
status=0
for target in $targets; do
    name=$(basename "$target")
    mkdir -p "$scratch/$name/corpus" "$scratch/$name/artifacts"
    seeds="$here/corpus/$name"
    [ -d "$seeds" ] || seeds=""
    echo "== $name: $each s"
    if ! "$target" -max_total_time="$each" -timeout=10 -rss_limit_mb=2048 -malloc_limit_mb=256 \
            -max_len=8192 -print_final_stats=1 \
            -artifact_prefix="$scratch/$name/artifacts/" "$scratch/$name/corpus" $seeds; then
        echo "run_fuzz.sh: $name failed; the input is kept in $scratch/$name/artifacts/" >&2
        status=1
        break
    fi
done
[ "$status" -ne 0 ] || rm -rf "$scratch"
exit "$status"
