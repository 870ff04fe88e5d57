#!/usr/bin/env bash
# Debian's packages, installed into a folder with a package database of its own, and removed from it.
#
# usage: debian_packages.sh install | use | remove ROOT PACKAGES SAMPLE
set -euo pipefail
action=$1 root=$2 packages=$3 sample=$4

package() {
    # Scripts of a package see that they are outside of the root, in which there is no shell.
    dpkg --root="$root" --log=/dev/null --force-not-root --force-script-chrootless "$@"
}

case $action in
    install)
        rm -rf "$root"
        mkdir -p "$root"/var/lib/dpkg/{info,updates}
        # What this machine has of the packages that these need is there.
        dpkg-query -s libc6 libgcc-s1 libstdc++6 python3 python3-numpy > "$root/var/lib/dpkg/status"
        package --install "$packages"/*.deb
        ;;
    use)
        arch=$(dpkg-architecture -qDEB_HOST_MULTIARCH)
        export LD_LIBRARY_PATH=$root/usr/lib/$arch
        if readelf -d "$root/usr/bin/kvocaeio" | grep -E 'RPATH|RUNPATH'; then
            echo 'the program looks for libraries in folders of its own' >&2
            exit 1
        fi
        "$root/usr/bin/kvocaeio" --version | grep -F 0.1.0
        "$root/usr/bin/kvocaeio" info "$sample" | grep -F 'BRICK'
        for page in kvocaeio kvocaeio-info kvocaeio-check kvocaeio-convert kvocaeio-tidy kvocaeio-view; do
            zcat "$root/usr/share/man/man1/$page.1.gz" | grep -F '.SH SYNOPSIS'
        done
        for name in libkvocaeio0.1 libkvocaeio-dev kvocaeio python3-kvocaeio; do
            grep -F 'MIT License' "$root/usr/share/doc/$name/copyright"
            zcat "$root/usr/share/doc/$name/changelog.gz" | grep -F 'kvocaeio (0.1.0)'
        done
        grep -F 'University of Cincinnati' "$root/usr/share/doc/kvocaeio/copyright"
        PYTHONPATH=$root/usr/lib/python3/dist-packages /usr/bin/python3 -B -c '
import importlib.metadata, kvocaeio, sys
print(importlib.metadata.version("kvocaeio"), kvocaeio.read(sys.argv[1]))
' "$sample" | grep -F '0.1.0 <kvocaeio.Model'
        ;;
    remove)
        package --purge python3-kvocaeio kvocaeio libkvocaeio-dev libkvocaeio0.1
        left=$(find "$root" -mindepth 1 -not -path "$root/var*" -o -iname '*kvocaeio*')
        if [ -n "$left" ]; then
            printf 'left behind:\n%s\n' "$left" >&2
            exit 1
        fi
        ;;
esac
