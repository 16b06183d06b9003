# bash completion for kestrum

# Project files and folders; any files with an argument.
_kestrum_files()
{
    if declare -F _filedir >/dev/null; then # of bash-completion: knows about quotes and ~
        _filedir ${1:+"$1"}
    elif [[ ${1-} ]]; then
        mapfile -t COMPREPLY < <(compgen -d -- "$cur"; compgen -f -X "!*.$1" -- "$cur")
    else
        mapfile -t COMPREPLY < <(compgen -f -- "$cur")
    fi
    compopt -o filenames 2>/dev/null
}

_kestrum_words()
{
    local IFS=$' \t\n'
    mapfile -t COMPREPLY < <(compgen -W "$1" -- "$cur")
}

_kestrum_families()
{
    _kestrum_words "$(kestrum sections --format csv 2>/dev/null | tail -n +2 | cut -d, -f1)"
}

# Names of the fields with what follows them: "l=", "qload[".
_kestrum_fields()
{
    local name='s/^"\([^"]*\)": '
    _kestrum_words "$(kestrum new 2>/dev/null | kestrum dump --inputs - 2>/dev/null |
        sed -n "$name\[.*/\1[/p; t; $name.*/\1=/p")"
    compopt -o nospace 2>/dev/null
}

_kestrum()
{
    local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD - 1]} command= word after= operands=0
    COMPREPLY=()
    for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        if [[ $after ]]; then
            after= # the value of an option
        elif [[ $word == --@(author|checker|company|date|decimal|logo|office|projectnumber|revision|data|setup|color|format|family|axis|output|base|basis|by|fields|group|jobs|keep|key|map|max-b|max-h|max-ir|memory|pool|range|set|sign|steel|top) || $word == -o ]]; then
            after=$word
        elif [[ $word != -* || $word == - ]]; then
            if [[ $command ]]; then operands=$((operands + 1)); else command=$word; fi
        fi
    done

    case $after in
    --format)
        case $command in
        vortex) _kestrum_words 'text json' ;;
        batch | envelope) _kestrum_words 'csv json ndjson' ;;
        *) _kestrum_words 'text json csv' ;;
        esac
        return ;;
    --sign) _kestrum_words 'compression+ tension+'; return ;;
    --axis) _kestrum_words 'z y'; return ;;
    --color) _kestrum_words 'auto always never'; return ;;
    --family) _kestrum_families; return ;;
    --data) _kestrum_files -d; return ;;
    --base) _kestrum_files kst; return ;;
    --setup | -o | --output | --members) _kestrum_files; return ;;
    --set) _kestrum_fields; return ;;
    --basis) _kestrum_words 'program standard both'; return ;;
    --decimal) _kestrum_words 'point comma'; return ;;
    --delimiter) _kestrum_words 'comma semicolon tab'; return ;;
    --logo | --office) _kestrum_files; return ;;
    --author | --checker | --company | --date | --projectnumber | --revision) return ;;
    --by) _kestrum_words 'mass depth price surface'; return ;;
    --pool) _kestrum_files; return ;;
    --fields | --group | --jobs | --keep | --shard | --key | --map | --max-b | --max-h | --max-ir | --memory | --range | --steel | --top) return ;;
    esac
    [[ $cur != = && $prev != = ]] || return # the value of a field

    if [[ $cur == -* ]]; then
        local options='--help --data --setup --color --quiet'
        case $command in
        '') options+=' --version' ;;
        check) options+=' --basis --loadcase --notes --no-notes --exit-zero --csv-safe --format --json --delimiter --decimal' ;;
        batch) options+=' --output --base --fields --shard --jobs --resume --sign --raw --keep-columns --exit-zero --csv-safe --no-csv-safe --format --json --delimiter --decimal' ;;
        envelope) options+=' --output --basis --key --map --sign --swap-axes --all --top --memory --base --shard --jobs --resume --raw --exit-zero --csv-safe --no-csv-safe --format --json --delimiter --decimal' ;;
        optimize) options+=' --output --pool --range --keep --steel --by --max-ir --max-h --max-b --top --basis --group --key --map --sign --swap-axes --memory --base --jobs --raw --notes --exit-zero --format --json --delimiter --decimal' ;;
        merge) options+=' --output' ;;
        summary) options+=' --output --members --key --base --raw --top --delimiter --decimal' ;;
        dump) options+=' --inputs' ;;
        new) options+=' --output --family --set --sign --raw' ;;
        set) options+=' --output --sign --raw --dry-run' ;;
        sections | fields) options+=' --format --json --delimiter --decimal' ;;
        vortex) options+=' --format --json' ;;
        diagram) options+=' --axis --output' ;;
        table) options+=' --output --delimiter --decimal' ;;
        report) options+=' --output --company --logo --projectnumber --author --checker --revision --date --decimal --office --vortex --reproducible' ;;
        esac
        _kestrum_words "$options"
        return
    fi
    case $command in
    '') _kestrum_words 'check dump new set sections fields vortex diagram table report batch envelope optimize merge summary help' ;;
    help) ((operands)) || _kestrum_words 'check dump new set sections fields vortex diagram table report batch envelope optimize merge summary' ;;
    sections) ((operands)) || _kestrum_families ;;
    fields) ((operands)) || _kestrum_words "$(kestrum fields --format csv 2>/dev/null | tail -n +2 | cut -d, -f1)" ;;
    report) if ((operands)); then _kestrum_files kst; else _kestrum_words 'control section vortex full'; fi ;;
    set) if ((operands)); then _kestrum_fields; else _kestrum_files kst; fi ;;
    new) [[ " ${COMP_WORDS[*]:1:COMP_CWORD-1} " != *' --set '* ]] || _kestrum_fields ;;
    batch | envelope | optimize | merge | summary) _kestrum_files ;;
    *) _kestrum_files kst ;;
    esac
}
complete -F _kestrum kestrum
