# Completes words of command lines in fish.
# usage: check_fish.sh FISH FOLDER
home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT
HOME=$home XDG_CONFIG_HOME=$home XDG_DATA_HOME=$home "$1" --no-config -c "
source $2/kvocaeio.fish
complete -C 'kvocaeio in'
complete -C 'kvocaeio info --js'
complete -C 'kvocaeio convert --un'" > "$home/found" || exit 1
cut -f 1 "$home/found" > "$home/words"
printf '%s\n' info --json --json-lines --unit | diff - "$home/words"
