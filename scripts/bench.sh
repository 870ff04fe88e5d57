#!/usr/bin/env bash
# Measures the library against the floor, the least that any program must do for the same job, and
# imports with a report, `kvocaeio info`, `convert` and `view` against the import in them (of Abaqus
# decks with the sort), tidying against the import of what a deck becomes.
#
# usage: scripts/bench.sh [--scale] [--peers] [--parts] [FORMAT]... [N]
#        scripts/bench.sh python [N]
#   FORMAT   abaqus, 3di, nastran or patran (all of them)
#   python   instead, the Python module against the import in C++, and in threads
#   N        elements of the meshes, geometry blocks of the package (1000000)
#   --scale  and the time per element for 10,000 to 5,000,000 elements
#   --peers  and other readers of the formats, as far as they are installed
#   --parts  and the parts of the text toolkit, and all jobs by size, with Google Benchmark
#
# Library and floor take turns, ROUNDS times (7). Seconds are processor time and medians; a ratio is
# the median of the rounds' own ratios, which hardly changes when the machine's speed drifts.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# What is measured: format, file, the library's job on it, and its steps, each with its floor's job.
cases=(
    'abaqus  abaqus-hex  abaqus         import=abaqus  sort=abaqus-sort'
    'abaqus  abaqus-tet  abaqus         import=abaqus  sort=abaqus-sort'
    '3di     3di         3di            import=3di'
    'nastran nastran     nastran        read=nastran'
    'nastran nastran     write-nastran  write=write-nastran'
    'patran  patran      patran-bridge  bridge=patran'
    'patran  patran      patran-reader  reader=patran'
    'patran  patran      write-patran   write=write-patran'
)
# Format, file, and all imports of it, which are those of `kvocaeio info`.
importCases=(
    'abaqus  abaqus-hex  abaqus'
    'abaqus  abaqus-tet  abaqus'
    '3di     3di         3di'
    'nastran nastran     nastran'
    'patran  patran      patran-bridge patran-reader'
)
# Format, file that is tidied, and the import of what it becomes.
tidyCases=(
    'abaqus  abaqus-hex      abaqus'
    'abaqus  abaqus-tet      abaqus'
    'abaqus  abaqus-assembly abaqus'
    'nastran nastran         nastran'
    'nastran nastran-free    nastran'
    'nastran nastran-large   nastran'
)
declare -A extensions=([abaqus-hex]=inp [abaqus-tet]=inp [abaqus-assembly]=inp [3di]=3di
    [nastran]=bdf [nastran-free]=bdf [nastran-large]=bdf [patran]=pat)

rounds=${ROUNDS:-7}
elements=1000000
formats=
scale=
peers=
parts=
python=
for argument in "$@"; do
    case $argument in
        --scale) scale=yes ;;
        --peers) peers=yes ;;
        --parts) parts=yes ;;
        python) python=yes ;;
        abaqus | 3di | nastran | patran) formats+=" $argument" ;;
        *[!0-9]* | '')
            sed -n '2,/^set/s/^# \{0,1\}//p' "$0" >&2
            exit 2
            ;;
        *) elements=$argument ;;
    esac
done

scripts/setup.sh build bench
cmake --preset linux-release -DKVOCAEIO_BUILD_BENCH=ON >/dev/null
cmake --build --preset linux-release --target kvocaeio kvocaeio_bench kvocaeio_bench_generate \
    kvocaeio_bench_floor kvocaeio_bench_library
bin=build/linux-release/bin
data=build/bench-data
mkdir -p "$data"
trap 'rm -f "$data"/written*' EXIT

isChosen() {
    [ -z "$formats" ] || [[ " $formats " = *" $1 "* ]]
}

# input KIND N: the path of a generated file; made where it is missing or older than the generator.
input() {
    local file=$data/$1-$2.${extensions[$1]}
    if [ ! "$file" -nt "$bin/kvocaeio_bench_generate" ]; then
        "$bin/kvocaeio_bench_generate" "$1" "$2" "$file.part"
        mv "$file.part" "$file"
    fi
    echo "$file"
}

# field NAME: the value behind "NAME=" of each line.
field() {
    tr ' ' '\n' | sed -n "s/^$1=//p"
}

median() {
    sort -g | awk '{ value[NR] = $1 }
        END { print (value[int((NR + 1) / 2)] + value[int((NR + 2) / 2)]) / 2 }'
}

mebibytes() {
    median | awk '{ printf "%.1f", $1 / 1048576 }'
}

# measure FILE JOB N [FLOOR_JOB...]: all rounds of the library's job, in turns with the floors. The
# lines that they print go to `library` and, by the job's name, to `floors`.
measure() {
    local kind=$1 job=$2 size=$3 file floor round
    shift 3
    file=$data/written
    [[ $job = write-* ]] || file=$(input "$kind" "$size")
    library=
    floors=()
    for ((round = 0; round < rounds; ++round)); do
        for floor in "$@"; do
            rm -f "$data/written" # to write over a file costs as much again, now and then
            floors[$floor]+=$("$bin/kvocaeio_bench_floor" "$floor" "$file" "$size")$'\n'
        done
        rm -f "$data/written"
        library+=$("$bin/kvocaeio_bench_library" "$job" "$file" "$size")$'\n'
    done
}

compareWithFloor() {
    local each format kind job steps step name floor seconds least ratio peak tables library
    local -A floors
    printf '\n%d elements, %d rounds\n' "$elements" "$rounds"
    printf '%-11s %-7s %9s %9s %7s %10s %11s\n' \
        file step 'library s' 'floor s' ratio 'peak MiB' 'tables MiB'
    for each in "${cases[@]}"; do
        read -r format kind job steps <<<"$each"
        isChosen "$format" || continue
        read -ra steps <<<"$steps"
        measure "$kind" "$job" "$elements" "${steps[@]#*=}"
        for step in "${steps[@]}"; do
            name=${step%=*}
            floor=${floors[${step#*=}]}
            seconds=$(field "${name}_cpu" <<<"$library")
            least=$(field cpu <<<"$floor")
            ratio=$(paste <(echo "$seconds") <(echo "$least") | awk '{ print $1 / $2 }' | median)
            peak=$(field "${name}_peak" <<<"$library" | mebibytes)
            tables=$(field "${name}_tables" <<<"$library" | mebibytes)
            printf '%-11s %-7s %9.3f %9.3f %7.2f %10.1f %11.1f\n' "$kind" "$name" \
                "$(median <<<"$seconds")" "$(median <<<"$least")" "$ratio" "$peak" "$tables"
        done
    done
}

# processorSeconds COMMAND...: what the whole process takes.
processorSeconds() {
    local TIMEFORMAT='%3U %3S'
    { time "$@" >/dev/null; } 2>&1 | awk '{ print $1 + $2 }'
}

# stepSeconds FILE JOB...: processor time of all steps, import and sort or reading, of all jobs.
stepSeconds() {
    local file=$1 job
    shift
    for job in "$@"; do
        "$bin/kvocaeio_bench_library" "$job" "$file" 0
    done | awk -F'[= ]' '{ sum += $2 } END { print sum }'
}

# importSeconds FILE JOB: processor time of the first step, the import or reading.
importSeconds() {
    "$bin/kvocaeio_bench_library" "$2" "$1" 0 | awk -F'[= ]' 'NR == 1 { print $2 }'
}

# compareWithImport TITLE COLUMN MEASURE: what `MEASURE FILE JOB...` takes, in turns with all steps of
# the imports of the same file.
compareWithImport() {
    local each format kind jobs file round other import
    printf '\n%s, %d elements, %d rounds\n' "$1" "$elements" "$rounds"
    printf '%-11s %9s %9s %7s\n' file "$2 s" 'import s' ratio
    for each in "${importCases[@]}"; do
        read -r format kind jobs <<<"$each"
        isChosen "$format" || continue
        read -ra jobs <<<"$jobs"
        file=$(input "$kind" "$elements")
        other=()
        import=()
        for ((round = 0; round < rounds; ++round)); do
            import+=("$(stepSeconds "$file" "${jobs[@]}")")
            other+=("$("$3" "$file" "${jobs[@]}")")
        done
        printf '%-11s %9.3f %9.3f %7.2f\n' "$kind" "$(printf '%s\n' "${other[@]}" | median)" \
            "$(printf '%s\n' "${import[@]}" | median)" \
            "$(paste <(printf '%s\n' "${other[@]}") <(printf '%s\n' "${import[@]}") |
                awk '{ print $1 / $2 }' | median)"
    done
}

infoSeconds() {
    processorSeconds "$bin/kvocaeio" info "$1"
}

convertSeconds() {
    rm -f "$data"/written.vt? # to write over a file costs as much again
    local extension=vtu
    [[ $1 != *.3di ]] || extension=vtp
    processorSeconds "$bin/kvocaeio" convert --as-is --force --quiet "$1" "$data/written.$extension"
}

viewSeconds() {
    rm -f "$data/written.html" # as above
    processorSeconds "$bin/kvocaeio" view --as-is "$1" -o "$data/written.html"
}

# The page of a mesh in a headless Chromium, where one and npm are installed.
openPage() {
    local browser modules=build/npm/node_modules
    isChosen abaqus || return 0
    browser=$(command -v chromium) || return 0
    [ -d "$modules" ] || return 0
    printf '\nThe page of kvocaeio view, %d elements\n%-11s ' "$elements" abaqus-hex
    PROGRAM=$bin/kvocaeio CHROMIUM=$browser NODE_MODULES=$PWD/$modules \
        node bench/view_page.mjs "$(input abaqus-hex "$elements")"
}

reportSeconds() {
    local file=$1
    shift
    stepSeconds "$file" "${@/%/-report}"
}

# What it takes to tidy a deck, and the tidy deck once more, in turns with the import of that one;
# and the memory of both, beside the deck's size.
compareTidy() {
    local each format kind job file round tidied again import
    printf '\nTidying, %d elements, %d rounds\n' "$elements" "$rounds"
    printf '%-15s %9s %9s %9s %7s %11s %9s %9s %10s\n' file 'tidy s' 'again s' 'import s' ratio \
        'again ratio' 'deck MiB' 'peak MiB' 'again MiB'
    for each in "${tidyCases[@]}"; do
        read -r format kind job <<<"$each"
        isChosen "$format" || continue
        file=$(input "$kind" "$elements")
        tidied=
        again=
        import=
        for ((round = 0; round < rounds; ++round)); do
            rm -f "$file.tidy" "$file.tidy.tidy" # as above
            tidied+=$("$bin/kvocaeio_bench_library" tidy "$file" 0)$'\n'
            again+=$("$bin/kvocaeio_bench_library" tidy "$file.tidy" 0)$'\n'
            import+=$(importSeconds "$file.tidy" "$job")$'\n'
        done
        printf '%-15s %9.3f %9.3f %9.3f %7.2f %11.2f %9.1f %9.1f %10.1f\n' "$kind" \
            "$(field tidy_cpu <<<"$tidied" | median)" "$(field tidy_cpu <<<"$again" | median)" \
            "$(printf %s "$import" | median)" "$(ratioOf "$tidied" "$import")" \
            "$(ratioOf "$again" "$import")" "$(stat -c %s "$file" | mebibytes)" \
            "$(field tidy_peak <<<"$tidied" | mebibytes)" \
            "$(field tidy_peak <<<"$again" | mebibytes)"
        rm -f "$file.tidy" "$file.tidy.tidy"
    done
}

# ratioOf TIDIED IMPORTS: the median of the rounds' own ratios.
ratioOf() {
    paste <(field tidy_cpu <<<"$1") <(printf %s "$2") | awk '{ print $1 / $2 }' | median
}

compareSizes() {
    local each format kind job steps step size line library
    local -A floors
    local sizes=(10000 100000 1000000 5000000)
    printf '\nNanoseconds per element by number of elements\n'
    printf '%-11s %-7s' file step
    printf ' %9d' "${sizes[@]}"
    printf '\n'
    for each in "${cases[@]}"; do
        read -r format kind job steps <<<"$each"
        isChosen "$format" || continue
        local -A times=()
        for size in "${sizes[@]}"; do
            measure "$kind" "$job" "$size"
            for step in $steps; do
                times[$step]+=$(field "${step%=*}_cpu" <<<"$library" | median |
                    awk -v size="$size" '{ printf " %9.1f", 1e9 * $1 / size }')
            done
        done
        for step in $steps; do
            printf '%-11s %-7s%s\n' "$kind" "${step%=*}" "${times[$step]}"
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
    printf '\nPeers: one read of %d elements\n' "$elements"
    for kind in abaqus-hex abaqus-tet nastran; do
        isChosen "${kind%-*}" || continue
        "$python" -c "$read" "$(input "$kind" "$elements")" |
            awk -v file="$kind" '{ printf "%-11s meshio %s %9.3f s\n", file, $1, $2 }'
    done
}

# The module reads in one process, the library's job imports in another, in turns. What numpy takes
# by itself is part of the peak.
comparePython() {
    local kind job round file peak reads imports script=bench/python_module.py
    export PYTHONPATH=build/linux-release/wheel/tree
    printf '\nPython, %d elements, %d rounds\n' "$elements" "$rounds"
    printf '%-11s %9s %9s %7s %10s %10s %11s\n' \
        file 'read s' 'import s' ratio 'peak MiB' 'numpy MiB' 'tables MiB'
    for kind in abaqus-hex:abaqus abaqus-tet:abaqus nastran:nastran patran:patran-reader; do
        job=${kind#*:}
        kind=${kind%:*}
        file=$(input "$kind" "$elements")
        reads=
        imports=
        for ((round = 0; round < rounds; ++round)); do
            imports+=$("$bin/kvocaeio_bench_library" "$job" "$file" 0 | head -n 1)$'\n'
            reads+=$("$pythonProgram" "$script" read "$file")$'\n'
        done
        imports=$(sed 's/[a-z]*_\(cpu\|tables\)/\1/g' <<<"$imports")
        printf '%-11s %9.3f %9.3f %7.2f %10.1f %10.1f %11.1f\n' "$kind" \
            "$(field cpu <<<"$reads" | median)" "$(field cpu <<<"$imports" | median)" \
            "$(paste <(field cpu <<<"$reads") <(field cpu <<<"$imports") |
                awk '{ print $1 / $2 }' | median)" \
            "$(field peak <<<"$reads" | mebibytes)" "$(field start <<<"$reads" | mebibytes)" \
            "$(field tables <<<"$imports" | mebibytes)"
    done
    file=$(input abaqus-hex "$elements")
    reads=
    for ((round = 0; round < rounds; ++round)); do
        reads+=$("$pythonProgram" "$script" threads "$file")$'\n'
    done
    printf '\nFour decks on %d cores, and how many times as fast as in a loop\n' "$(nproc)"
    for kind in loop one two four; do
        printf '%-11s %9.3f %7.2f\n' "$kind" "$(field "$kind" <<<"$reads" | median)" \
            "$(paste <(field loop <<<"$reads") <(field "$kind" <<<"$reads") |
                awk '{ print $1 / $2 }' | median)"
    done
}

if [ -n "$python" ]; then
    pythonProgram=$(sed -n 's/^KVOCAEIO_PYTHON:[^=]*=//p' build/linux-release/CMakeCache.txt)
    cmake --build --preset linux-release --target kvocaeio_wheel >/dev/null
    comparePython
    exit
fi
compareWithFloor
compareWithImport 'Import with a report' report reportSeconds
compareWithImport 'kvocaeio info' info infoSeconds
compareWithImport 'kvocaeio convert to VTK' convert convertSeconds
compareWithImport 'kvocaeio view' view viewSeconds
openPage
compareTidy
[ -z "$scale" ] || compareSizes
[ -z "$peers" ] || comparePeers
[ -z "$parts" ] || "$bin/kvocaeio_bench"
