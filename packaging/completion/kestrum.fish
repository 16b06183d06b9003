# fish completion for kestrum
set -l commands check dump new set sections vortex diagram table report batch
function __kestrum_families
    kestrum sections --format csv 2>/dev/null | tail -n +2 | string replace -a '"' '' | string replace -r ',[^,]*,' \t
end
complete -c kestrum -f
complete -c kestrum -n "not __fish_seen_subcommand_from $commands" -l version -d 'Version'
complete -c kestrum -l help -d 'Help'
complete -c kestrum -l data -r -a '(__fish_complete_directories)' -d 'Folder of the tables'
complete -c kestrum -l setup -rF -d 'Stored setup'
complete -c kestrum -n "not __fish_seen_subcommand_from $commands" -a check -d 'Calculate and print the result panel'
complete -c kestrum -n "not __fish_seen_subcommand_from $commands" -a dump -d 'Print the whole state as JSON'
complete -c kestrum -n "not __fish_seen_subcommand_from $commands" -a new -d 'Write a default project'
complete -c kestrum -n "not __fish_seen_subcommand_from $commands" -a set -d 'Change fields of a project'
complete -c kestrum -n "not __fish_seen_subcommand_from $commands" -a sections -d 'List families or rows'
complete -c kestrum -n "not __fish_seen_subcommand_from $commands" -a vortex -d 'Control vortex shedding'
complete -c kestrum -n "not __fish_seen_subcommand_from $commands" -a diagram -d 'Draw the diagrams'
complete -c kestrum -n "not __fish_seen_subcommand_from $commands" -a table -d 'Print the intermediate values'
complete -c kestrum -n "not __fish_seen_subcommand_from $commands" -a report -d 'Write a printed report'
complete -c kestrum -n "not __fish_seen_subcommand_from $commands" -a batch -d 'Calculate many members'
complete -c kestrum -n '__fish_seen_subcommand_from batch' -F
complete -c kestrum -n '__fish_seen_subcommand_from batch' -l base -rF
complete -c kestrum -n '__fish_seen_subcommand_from batch' -l fields -x -d 'Columns'
complete -c kestrum -n '__fish_seen_subcommand_from batch' -l jobs -x -d 'Threads'
complete -c kestrum -n '__fish_seen_subcommand_from batch' -l resume
complete -c kestrum -n '__fish_seen_subcommand_from batch' -l quiet
complete -c kestrum -n '__fish_seen_subcommand_from check dump set vortex diagram table report' -a '(__fish_complete_suffix .kst)'
complete -c kestrum -n '__fish_seen_subcommand_from report' -a 'control section vortex'
complete -c kestrum -n '__fish_seen_subcommand_from sections' -a '(__kestrum_families)'
complete -c kestrum -n '__fish_seen_subcommand_from check' -l loadcase -d 'Governing load case'
complete -c kestrum -n '__fish_seen_subcommand_from check' -l notes -d 'Notes on deviations'
complete -c kestrum -n '__fish_seen_subcommand_from check sections' -l format -x -a 'text json csv'
complete -c kestrum -n '__fish_seen_subcommand_from vortex' -l format -x -a 'text json'
complete -c kestrum -n '__fish_seen_subcommand_from check sections vortex' -l json
complete -c kestrum -n '__fish_seen_subcommand_from dump' -l inputs -d 'Inputs alone'
complete -c kestrum -n '__fish_seen_subcommand_from new' -l family -x -a '(__kestrum_families)'
complete -c kestrum -n '__fish_seen_subcommand_from new' -l set -x -d 'NAME=VALUE'
complete -c kestrum -n '__fish_seen_subcommand_from new set' -l raw -d 'Unchecked'
complete -c kestrum -n '__fish_seen_subcommand_from new set diagram table report' -s o -l output -rF
complete -c kestrum -n '__fish_seen_subcommand_from diagram' -l axis -x -a 'z y'
