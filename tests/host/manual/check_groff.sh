# Formats the manual pages; a warning is a failure. There is a page for every command.
# usage: check_groff.sh GROFF FOLDER
pages=$(zcat "$2/kvocaeio.1.gz" | sed -n 's/.*fB\(kvocaeio[a-z\\-]*\)\\fR(1).*/\1/p' | tr -d '\\')
[ "$(echo "$pages" | wc -w)" -ge 2 ] || exit 1
for page in kvocaeio $pages; do
    warnings=$(zcat "$2/$page.1.gz" | "$1" -man -Tascii -ww 2>&1 >/dev/null)
    if [ -n "$warnings" ]; then
        printf '%s\n%s\n' "$page" "$warnings" >&2
        exit 1
    fi
    zcat "$2/$page.1.gz" | "$1" -man -Tascii -P-cbou |
        grep -A 1 '^NAME' | grep -q " $page  *- " || exit 1
done
