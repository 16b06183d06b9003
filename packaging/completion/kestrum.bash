# bash completion for kestrum
_kestrum()
{
    local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD - 1]} command= word
    local commands='check dump new set sections vortex diagram table report batch'
    COMPREPLY=()
    for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        case " $commands " in *" $word "*) command=$word; break ;; esac
    done
    case $prev in
    --format) COMPREPLY=($(compgen -W 'text json csv' -- "$cur")); return ;;
    --axis) COMPREPLY=($(compgen -W 'z y' -- "$cur")); return ;;
    --family) COMPREPLY=($(compgen -W "$(kestrum sections --format csv 2>/dev/null | tail -n +2 | cut -d, -f1)" -- "$cur"))
              return ;;
    --data) COMPREPLY=($(compgen -d -- "$cur")); return ;;
    --setup | -o | --output) COMPREPLY=($(compgen -f -- "$cur")); return ;;
    esac
    if [[ $cur == -* ]]; then
        local options='--help'
        case $command in
        '') options+=' --version --data --setup' ;;
        check) options+=' --loadcase --notes --format --json' ;;
        batch) options+=' --output --base --fields --jobs --resume --raw --json --quiet' ;;
        dump) options+=' --inputs' ;;
        new) options+=' --output --family --set --raw' ;;
        set) options+=' --output --raw' ;;
        sections | vortex) options+=' --format --json' ;;
        diagram) options+=' --axis --output' ;;
        table | report) options+=' --output' ;;
        esac
        COMPREPLY=($(compgen -W "$options" -- "$cur"))
        return
    fi
    case $command in
    '') COMPREPLY=($(compgen -W "$commands" -- "$cur")) ;;
    sections) COMPREPLY=($(compgen -W "$(kestrum sections --format csv 2>/dev/null | tail -n +2 | cut -d, -f1)" -- "$cur")) ;;
    report) if [[ $prev == report ]]; then
                COMPREPLY=($(compgen -W 'control section vortex' -- "$cur"))
            else
                COMPREPLY=($(compgen -f -X '!*.kst' -- "$cur") $(compgen -d -- "$cur"))
            fi ;;
    batch) COMPREPLY=($(compgen -f -- "$cur")) ;;
    *) COMPREPLY=($(compgen -f -X '!*.kst' -- "$cur") $(compgen -d -- "$cur")) ;;
    esac
}
complete -o filenames -F _kestrum kestrum
