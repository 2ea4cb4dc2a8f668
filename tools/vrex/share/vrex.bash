# Completion of vrex for bash.

_vrex_options() {
    case $1 in
        components) echo --members ;;
        solve) echo --out --set --move --drag --determined --allow-redundant --tolerance --max-iterations ;;
        convert) echo --out --to --indent ;;
        import) echo --out --loops --lenient ;;
        diff) echo --tolerance ;;
    esac
}

# The first word that is neither an option nor empty.
_vrex_command() {
    local word
    for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        case $word in
            check | info | components | solve | convert | import | diff)
                echo "$word"
                return
                ;;
        esac
    done
}

_vrex_files() {
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -f -- "$1")
}

_vrex() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    local command common="--json --quiet --help"
    command=$(_vrex_command)
    COMPREPLY=()
    case $previous in
        --to)
            mapfile -t COMPREPLY < <(compgen -W "document stream" -- "$current")
            return
            ;;
        -o | --out | --loops)
            _vrex_files "$current"
            return
            ;;
        --set | --move | --tolerance | --max-iterations | --indent) return ;;
    esac
    if [[ $current == -* && -z $command ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$common --version" -- "$current")
    elif [[ $current == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$common $(_vrex_options "$command")" -- "$current")
    elif [[ -z $command ]]; then
        mapfile -t COMPREPLY < <(compgen -W "check info components solve convert import diff" -- "$current")
    else
        _vrex_files "$current"
    fi
}

complete -F _vrex vrex
