# shellcheck shell=bash
# Completion of brixley-cli for bash. Commands, options and values are those that the program's own help tells, so
# nothing has to be kept in step with it here.

_brixley_cli()
{
    local program=$1 current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    COMPREPLY=()
    # "=" is a word of its own for bash: "--machine=MK" is three.
    if [[ $current == = ]]; then
        current=
    elif [[ $previous == = ]]; then
        previous=${COMP_WORDS[COMP_CWORD - 2]}
    fi

    local help line
    if ((COMP_CWORD == 1)); then
        help=$("$program" --help 2>/dev/null) || return 0
        local words
        if [[ $current == -* ]]; then
            words=$(_brixley_cli_options "$help")
        else
            words=$(sed '1,/^Commands:/d; s/^ *\([^ ]*\).*/\1/' <<<"$help")
        fi
        mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
        return 0
    fi
    help=$("$program" "${COMP_WORDS[1]}" --help 2>/dev/null) || return 0

    # The value of an option: one of a list, a folder, a file. A number, a size or a point offers nothing.
    line=$(grep -e "^  $previous [A-Z]" -e "^  -[^ ]*,$previous [A-Z]" <<<"$help")
    line=${line#*"$previous "}
    line=${line%%  *}
    case $line in
        "" | Excludes:* | Needs:*) ;; # no value belongs to it
        *:\{*)
            # Of several values, parted by commas, the last is being typed.
            local values=${line#*\{} done=
            values=${values%%\}*}
            [[ $line == *...* && $current == *,* ]] && done=${current%,*},
            mapfile -t COMPREPLY < <(compgen -P "$done" -W "${values//,/ }" -- "${current#"$done"}")
            return 0 ;;
        DIR*) _brixley_cli_files -d "$current"; return 0 ;;
        FILE* | OUT* | DEVICE* | TEXT | TEXT\ *) _brixley_cli_files -f "$current"; return 0 ;;
        *) return 0 ;;
    esac

    if [[ $current == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$(_brixley_cli_options "$help")" -- "$current")
    else
        _brixley_cli_files -f "$current"
    fi
}

# The long options of a help text, and the short ones that have no long form.
_brixley_cli_options()
{
    sed -n 's/^  \(-[^ ]*\).*/\1/p' <<<"$1" | sed 's/.*,//'
}

_brixley_cli_files()
{
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen "$1" -- "$2")
}

complete -F _brixley_cli brixley-cli
