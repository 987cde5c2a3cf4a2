#!/bin/sh
# The DXF module's benchmark: builds the module optimized in a folder of its own, generates drawings
# of 10 thousand, 100 thousand and 1 million entities, and times for each the floor (the file split
# into groups, numbers converted), a load, a save and a load with a save, each in a process of its
# own so that its peak memory is its own. Not run by the tests.
#
#   bench/run.sh [counts...]      (default: 10000 100000 1000000)
#   BUILD=... WORK=... to choose the build folder and the folder of the drawings.
set -e
SRC=$(cd "$(dirname "$0")/.." && pwd)
BUILD=${BUILD:-$SRC/build-bench}
WORK=${WORK:-${TMPDIR:-/tmp}/togu-bench}
COUNTS=${*:-"10000 100000 1000000"}

cmake -S "$SRC" -B "$BUILD" -DCMAKE_BUILD_TYPE=Release -DTOGU_TESTS=OFF > /dev/null
cmake --build "$BUILD" -j2 --target togu_sim_dxf > /dev/null
g++ -std=c++20 -O2 -DNDEBUG -I"$SRC" -I"$SRC/host" "$SRC/bench/dxf_bench.cpp" -o "$BUILD/dxf_bench" \
    -Wl,--start-group "$BUILD/libtogu_sim_dxf.a" "$BUILD/libtogu_sim_editor.a" "$BUILD/libtogu_sim_db.a" \
    "$BUILD/libtogu_sim_core.a" -Wl,--end-group
mkdir -p "$WORK"

# "name 1.234 s, peak 56.7 MB" -> the seconds, the megabytes.
secs() { sed -n 's/^[^0-9]* \([0-9.]*\) s.*/\1/p' | tail -1; }
peak() { sed -n 's/.*peak \([0-9.]*\) MB.*/\1/p' | tail -1; }

for n in $COUNTS; do
    file="$WORK/bench_$n.dxf"
    "$BUILD/dxf_bench" generate "$n" "$file" > /dev/null
    mb=$(awk "BEGIN { printf \"%.1f\", $(stat -c %s "$file") / 1048576 }")
    floor=$("$BUILD/dxf_bench" floor "$file")
    load=$("$BUILD/dxf_bench" load "$file")
    save=$("$BUILD/dxf_bench" save "$file" "$WORK/out_$n.dxf")
    both=$("$BUILD/dxf_bench" loadsave "$file" "$WORK/out_$n.dxf")
    f=$(echo "$floor" | secs)
    echo "$n entities, $mb MB:"
    for line in "floor|$floor" "load|$load" "save|$save" "load + save|$both"; do
        name=${line%%|*}
        out=${line#*|}
        s=$(echo "$out" | secs)
        p=$(echo "$out" | peak)
        awk "BEGIN { printf \"  %-12s %8.3f s  %5.2f x floor   peak %7.1f MB  %4.2f x file\n\", \"$name\", $s, $s / $f, $p, $p / $mb }"
    done
    rm -f "$WORK/out_$n.dxf"
done
