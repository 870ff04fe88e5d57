# Reads the completion in zsh, with a stand-in for the function that gets the descriptions.
# usage: check_zsh.sh ZSH FOLDER
[ "$(head -n 1 "$2/_kvocaeio")" = '#compdef kvocaeio' ] || exit 1
exec "$1" -fc '
_arguments() { descriptions+=("$@"); state=argument; line=(convert) }
complete_word() { source $1/_kvocaeio }
descriptions=()
complete_word $1
for wanted in "*::argument:->argument" ":OUT:_files"; do
    if (( ! ${descriptions[(Ie)$wanted]} )); then
        print -rlu2 -- "no $wanted among" $descriptions
        exit 1
    fi
done
' zsh "$2"
