# Formats the manual pages; a warning is a failure.
# usage: check_groff.sh GROFF FOLDER
for page in kvocaeio kvocaeio-info kvocaeio-convert; do
    warnings=$(zcat "$2/$page.1.gz" | "$1" -man -Tascii -ww 2>&1 >/dev/null)
    if [ -n "$warnings" ]; then
        printf '%s\n%s\n' "$page" "$warnings" >&2
        exit 1
    fi
    zcat "$2/$page.1.gz" | "$1" -man -Tascii -P-cbou | grep -A 1 '^NAME' | grep -q " $page  *- " || exit 1
done
