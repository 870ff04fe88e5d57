#!/usr/bin/env bash
# Measures the library against the floor, the least that any program must do for the same job.
#
# usage: scripts/bench.sh [--scale] [--peers] [--parts] [N]
#   N        elements of the decks (1000000)
#   --scale  and the time per element for 10,000 to 5,000,000 elements
#   --peers  and other readers of the format, as far as they are installed
#   --parts  and the parts of the text toolkit, and imports by size, with Google Benchmark
#
# Library and floor take turns, ROUNDS times (7). Seconds are processor time and medians; a ratio is
# the median of the rounds' own ratios, which hardly changes when the machine's speed drifts.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

rounds=${ROUNDS:-7}
elements=1000000
scale=
peers=
parts=
for argument in "$@"; do
    case $argument in
        --scale) scale=yes ;;
        --peers) peers=yes ;;
        --parts) parts=yes ;;
        *[!0-9]* | '')
            sed -n '2,/^set/s/^# \{0,1\}//p' "$0" >&2
            exit 2
            ;;
        *) elements=$argument ;;
    esac
done

scripts/setup.sh build bench
cmake --preset linux-release -DKVOCAEIO_BUILD_BENCH=ON >/dev/null
cmake --build --preset linux-release --target kvocaeio_bench kvocaeio_bench_generate \
    kvocaeio_bench_floor kvocaeio_bench_import
bin=build/linux-release/bin
data=build/bench-data
mkdir -p "$data"

# deck KIND N: its path; made where it is missing or older than the generator.
deck() {
    local file=$data/$1-$2.inp
    if [ ! "$file" -nt "$bin/kvocaeio_bench_generate" ]; then
        "$bin/kvocaeio_bench_generate" "$1" "$2" "$file.part"
        mv "$file.part" "$file"
    fi
    echo "$file"
}

# field NAME LINE...: the value behind "NAME=" of each line.
field() {
    local name=$1
    shift
    printf '%s\n' "$@" | tr ' ' '\n' | sed -n "s/^$name=//p"
}

median() {
    sort -g | awk '{ value[NR] = $1 }
        END { print (value[int((NR + 1) / 2)] + value[int((NR + 2) / 2)]) / 2 }'
}

mebibytes() {
    median | awk '{ printf "%.1f", $1 / 1048576 }'
}

# row DECK JOB FLOOR_LINES: one line of the table, from what the rounds have left in `library`.
row() {
    local deck=$1 job=$2 seconds floor ratio peak tables
    local -n floors=$3
    seconds=$(field "${job}_cpu" "${library[@]}" | median)
    floor=$(field cpu "${floors[@]}" | median)
    ratio=$(paste <(field "${job}_cpu" "${library[@]}") <(field cpu "${floors[@]}") |
        awk '{ print $1 / $2 }' | median)
    peak=$(field "${job}_peak" "${library[@]}" | mebibytes)
    tables=$(field "${job}_tables" "${library[@]}" | mebibytes)
    printf '%-12s %-7s %9.3f %9.3f %7.2f %10.1f %11.1f\n' \
        "$deck" "$job" "$seconds" "$floor" "$ratio" "$peak" "$tables"
}

compareWithFloor() {
    local kind file round
    printf '\n%d elements, %d rounds\n' "$elements" "$rounds"
    printf '%-12s %-7s %9s %9s %7s %10s %11s\n' \
        deck job 'library s' 'floor s' ratio 'peak MiB' 'tables MiB'
    for kind in abaqus-hex abaqus-tet; do
        file=$(deck "$kind" "$elements")
        local library=() importFloor=() sortFloor=()
        for ((round = 0; round < rounds; ++round)); do
            importFloor+=("$("$bin/kvocaeio_bench_floor" abaqus "$file")")
            library+=("$("$bin/kvocaeio_bench_import" "$file")")
            sortFloor+=("$("$bin/kvocaeio_bench_floor" abaqus-sort "$file")")
        done
        row "$kind" import importFloor
        row "$kind" sort sortFloor
    done
}

compareSizes() {
    local kind size file round
    printf '\nTime per element by size of the deck\n'
    printf '%-12s %9s %10s %9s\n' deck elements 'import ns' 'sort ns'
    for kind in abaqus-hex abaqus-tet; do
        for size in 10000 100000 1000000 5000000; do
            file=$(deck "$kind" "$size")
            local library=()
            for ((round = 0; round < rounds; ++round)); do
                library+=("$("$bin/kvocaeio_bench_import" "$file")")
            done
            printf '%-12s %9d %10.0f %9.1f\n' "$kind" "$size" \
                "$(field import_cpu "${library[@]}" | median | awk "{ print 1e9 * \$1 / $size }")" \
                "$(field sort_cpu "${library[@]}" | median | awk "{ print 1e9 * \$1 / $size }")"
        done
    done
}

# The packages of Debian are those of its own Python.
comparePeers() {
    local kind python=
    local read='import sys, time, meshio
start = time.process_time()
meshio.read(sys.argv[1])
print(meshio.__version__, time.process_time() - start)'
    for python in python3 /usr/bin/python3; do
        "$python" -c 'import meshio' 2>/dev/null && break
        python=
    done
    [ -n "$python" ] || return 0
    printf '\nPeers: import of %d elements, one round\n' "$elements"
    for kind in abaqus-hex abaqus-tet; do
        "$python" -c "$read" "$(deck "$kind" "$elements")" |
            awk -v deck="$kind" '{ printf "%-12s meshio %s %9.3f s\n", deck, $1, $2 }'
    done
}

compareWithFloor
[ -z "$scale" ] || compareSizes
[ -z "$peers" ] || comparePeers
[ -z "$parts" ] || "$bin/kvocaeio_bench"
