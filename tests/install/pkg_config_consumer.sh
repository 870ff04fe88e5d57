#!/bin/sh
# Builds the consumer by what pkg-config says of the installed tree, and runs it on the deck.
set -eu
pkgConfig=$1 compiler=$2 installed=$3 libFolder=$4 deck=$5

PKG_CONFIG_PATH=$installed/$libFolder/pkgconfig
export PKG_CONFIG_PATH
program=$installed/pkg_config_consumer
# shellcheck disable=SC2046 # the flags are words of their own
"$compiler" "$(dirname "$0")/consumer/consumer.cpp" -o "$program" \
    $("$pkgConfig" --cflags --libs kvocaeio)
LD_LIBRARY_PATH=$installed/$libFolder "$program" "$deck"
[ "$("$pkgConfig" --modversion kvocaeio)" = 0.1.0 ]
