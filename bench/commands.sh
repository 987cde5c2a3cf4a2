#!/bin/sh
# Whole-drawing commands at scale: generates a drawing of N entities (default 1 million), times the
# load alone (an empty script), then each command in a process of its own on the same drawing, and
# prints each command's time and peak memory beyond the load. Not run by the tests.
#
#   bench/commands.sh [N]         BUILD=... WORK=... as in bench/run.sh
set -e
SRC=$(cd "$(dirname "$0")/.." && pwd)
BUILD=${BUILD:-$SRC/build-bench}
WORK=${WORK:-${TMPDIR:-/tmp}/togu-bench}
N=${1:-1000000}

cmake -S "$SRC" -B "$BUILD" -DCMAKE_BUILD_TYPE=Release -DTOGU_TESTS=OFF > /dev/null
cmake --build "$BUILD" -j2 --target togu togu_sim_dxf > /dev/null
g++ -std=c++20 -O2 -DNDEBUG -I"$SRC" -I"$SRC/host" "$SRC/bench/dxf_bench.cpp" -o "$BUILD/dxf_bench" \
    -Wl,--start-group "$BUILD/libtogu_sim_dxf.a" "$BUILD/libtogu_sim_editor.a" "$BUILD/libtogu_sim_db.a" \
    "$BUILD/libtogu_sim_core.a" -Wl,--end-group
mkdir -p "$WORK"
file="$WORK/bench_$N.dxf"
[ -f "$file" ] || "$BUILD/dxf_bench" generate "$N" "$file" > /dev/null

# Seconds and peak kilobytes of one run of togu on the drawing with the given script lines.
run() {
    printf '%s\n' "$@" > "$WORK/cmd.scr"
    /usr/bin/time -f '%e %M' -o "$WORK/time.txt" "$BUILD/togu" "$file" -s "$WORK/cmd.scr" \
        --registry "$WORK/reg" > "$WORK/out.txt" 2>&1 || echo "  (failed, see $WORK/out.txt)"
    cat "$WORK/time.txt"
}

set -- $(run "")
load_s=$1 load_kb=$2
echo "$N entities: load $load_s s, peak $((load_kb / 1024)) MB"
for cmd in _z0 kub ssa lt1 SMAZTEXTY preved; do
    set -- $(run "$cmd" "")
    awk "BEGIN { printf \"  %-10s %6.2f s beyond the load   %6.0f MB beyond the load\n\", \"$cmd\", $1 - $load_s, ($2 - $load_kb) / 1024 }"
done
