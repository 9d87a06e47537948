# bash completion for velmora-cli                          -*- shell-script -*-
# Commands, their options, and file names for PROJECT, FILE and DIR. Kept in
# step with "velmora-cli --help" by the install test.

_velmora_cli()
{
    local cur prev command word
    cur="${COMP_WORDS[COMP_CWORD]}"
    prev=""
    [ "$COMP_CWORD" -gt 0 ] && prev="${COMP_WORDS[COMP_CWORD - 1]}"
    COMPREPLY=()

    command=""
    for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        case "$word" in
            check|resave|render|outline) command="$word"; break ;;
        esac
    done

    case "$prev" in
        --out)
            # A file for resave, a folder for render.
            if [ "$command" = render ]; then
                mapfile -t COMPREPLY < <(compgen -d -- "$cur")
            else
                mapfile -t COMPREPLY < <(compgen -f -- "$cur")
            fi
            compopt -o filenames 2>/dev/null
            return 0
            ;;
        --hud)
            return 0
            ;;
        --zoom)
            mapfile -t COMPREPLY < <(compgen -W "0.5 1 1.5 2 3 4 5" -- "$cur")
            return 0
            ;;
    esac

    if [ -z "$command" ]; then
        mapfile -t COMPREPLY < <(compgen -W "check resave render outline --help --version" -- "$cur")
        return 0
    fi

    if [[ "$cur" == -* ]]; then
        local options=""
        case "$command" in
            resave) options="--out --visit-all --through-dialogs" ;;
            render) options="--out --hud --zoom --background" ;;
            outline) options="--hud" ;;
        esac
        mapfile -t COMPREPLY < <(compgen -W "$options" -- "$cur")
        return 0
    fi

    # PROJECT: a folder or its .rmmzproject file.
    mapfile -t COMPREPLY < <(compgen -d -- "$cur"; compgen -f -X '!*.rmmzproject' -- "$cur")
    compopt -o filenames 2>/dev/null
    return 0
} &&
    complete -F _velmora_cli velmora-cli
