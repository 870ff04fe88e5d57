#!/usr/bin/env bash
# Draws the pictures of the documentation from the sample files, with the program and a Chromium.
#
# usage: scripts/pictures.sh [PROGRAM [FOLDER]]
# Without arguments: that of the preset linux-release, into docs/pictures.
set -euo pipefail
sources=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
program=${1:-$sources/build/linux-release/bin/kvocaeio}
folder=${2:-$sources/docs/pictures}
data=$sources/examples/data

draw() {
    local name=$1 sample=$2
    shift 2
    "$program" view "$data/$sample" --picture "$folder/$name.png" --size 900x520 \
        --theme light --quiet "$@"
}

mkdir -p "$folder"
draw mesh housing.inp --edges --cut x:0.52
draw package stack.3di --stretch 3
draw finding clip.inp --as-is --finding abaqus.element-in-no-set
