# Completes words of command lines in bash.
# usage: check_bash.sh BASH FOLDER
exec "$1" -euc '
. "$0/kvocaeio"
expect() {
    expected=$1
    shift
    COMP_WORDS=("$@")
    COMP_CWORD=$(($# - 1))
    _kvocaeio
    if [ "${COMPREPLY[*]}" != "$expected" ]; then
        echo "$*: ${COMPREPLY[*]} instead of $expected" >&2
        exit 1
    fi
}
expect "info" kvocaeio in
expect "check convert" kvocaeio c
expect "note warning error" kvocaeio check --min-severity ""
expect "--version" kvocaeio --v
expect "--json --json-lines" kvocaeio info --js
expect "--unit" kvocaeio convert --un
expect "" kvocaeio info part
' "$2"
