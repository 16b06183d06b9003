# fish completion for kestrum
set -g __kestrum_commands check dump new set sections fields vortex diagram table report batch envelope optimize merge summary help

function __kestrum_families
    kestrum sections --format csv 2>/dev/null | tail -n +2 | string replace -a '"' '' | string replace -r ',[^,]*,[^,]*,' \t
end

# Names of the fields with what follows them: "l=", "qload[".
function __kestrum_fields
    kestrum new 2>/dev/null | kestrum dump --inputs - 2>/dev/null |
        string replace -rf '^"([^"]*)": (\[)?.*' '$1$2' | string replace -r '([^[])$' '$1='
end

# Whether the command is the given one, with so many operands behind it, or with any number.
function __kestrum_at -a command count
    set -l after 0
    set -l seen
    for token in (commandline -opc)[2..]
        if test $after = 1
            set after 0
        else if contains -- $token --data --setup --color --format --family --axis --output -o --base --fields --jobs --set --sign
            set after 1
        else if not string match -q -- '-?*' $token
            set -a seen $token
        end
    end
    test "$seen[1]" = "$command"; or return 1
    test -z "$count"; and return 0
    test (count $seen) -eq (math $count + 1)
end

function __kestrum_fields_at
    __kestrum_at set; and not __kestrum_at set 0; and return 0
    __kestrum_at new; and contains -- --set (commandline -opc)
end

complete -c kestrum -f
complete -c kestrum -l help -d 'Help'
complete -c kestrum -l data -x -a '(__fish_complete_directories)' -d 'Folder of the tables'
complete -c kestrum -l setup -rF -d 'Stored setup'
complete -c kestrum -l color -x -a 'auto always never' -d 'Colours of the answer'
complete -c kestrum -s q -l quiet -d 'No hints, no summary'
set -l none "not __fish_seen_subcommand_from $__kestrum_commands"
complete -c kestrum -n $none -s V -l version -d 'Version'
complete -c kestrum -n $none -a check -d 'Calculate and print the result panel'
complete -c kestrum -n $none -a dump -d 'Print the whole state as JSON'
complete -c kestrum -n $none -a new -d 'Write a default project'
complete -c kestrum -n $none -a set -d 'Change fields of a project'
complete -c kestrum -n $none -a sections -d 'List families or rows'
complete -c kestrum -n $none -a fields -d 'Explain the fields'
complete -c kestrum -n $none -a vortex -d 'Control vortex shedding'
complete -c kestrum -n $none -a diagram -d 'Draw the diagrams'
complete -c kestrum -n $none -a table -d 'Print the intermediate values'
complete -c kestrum -n $none -a report -d 'Write a printed report'
complete -c kestrum -n $none -a batch -d 'Calculate many members'
complete -c kestrum -n $none -a envelope -d 'Worst case of each member of a frame'
complete -c kestrum -n $none -a optimize -d 'Lightest section that passes'
complete -c kestrum -n $none -a merge -d 'Join the answers of shards'
complete -c kestrum -n $none -a summary -d 'Sort the answers by ratio'
complete -c kestrum -n $none -a help -d 'Print the help of a command'

complete -c kestrum -n '__kestrum_at check; or __kestrum_at dump; or __kestrum_at report; and not __kestrum_at report 0' -k -a '(__fish_complete_suffix .kst)'
for command in set vortex diagram table
    complete -c kestrum -n "__kestrum_at $command 0" -k -a '(__fish_complete_suffix .kst)'
end
complete -c kestrum -n '__kestrum_at help 0' -a 'check dump new set sections fields vortex diagram table report batch envelope optimize merge summary'
complete -c kestrum -n '__kestrum_at report 0' -a 'control section vortex full'
complete -c kestrum -n '__kestrum_at report' -l company -x -d 'Company'
complete -c kestrum -n '__kestrum_at report' -l logo -rF -d 'Its logo'
complete -c kestrum -n '__kestrum_at report' -l projectnumber -x -d 'Number of the project'
complete -c kestrum -n '__kestrum_at report' -l author -x -d 'Author'
complete -c kestrum -n '__kestrum_at report' -l checker -x -d 'Checker'
complete -c kestrum -n '__kestrum_at report' -l revision -x -d 'Revision'
complete -c kestrum -n '__kestrum_at report' -l date -x -d 'Date in place of today'
complete -c kestrum -n '__kestrum_at report' -l decimal -x -a 'point comma' -d 'Decimal sign'
complete -c kestrum -n '__kestrum_at report' -l office -rF -d 'File of these options'
complete -c kestrum -n '__kestrum_at report' -l vortex -d 'With the control of vortex shedding'
complete -c kestrum -n '__kestrum_at report' -l reproducible -d 'The same bytes each time'
complete -c kestrum -n '__kestrum_at sections 0' -a '(__kestrum_families)'
complete -c kestrum -n '__kestrum_at fields 0' -a '(kestrum fields --format csv 2>/dev/null | tail -n +2 | cut -d, -f1)'
complete -c kestrum -n __kestrum_fields_at -a '(__kestrum_fields)'
complete -c kestrum -n '__kestrum_at batch; or __kestrum_at envelope; or __kestrum_at optimize; or __kestrum_at merge; or __kestrum_at summary' -F

complete -c kestrum -n '__kestrum_at check' -l loadcase -d 'Governing load case'
complete -c kestrum -n '__kestrum_at check' -l notes -d 'Notes on deviations'
complete -c kestrum -n '__kestrum_at check' -l no-notes -d 'Without notes'
complete -c kestrum -n '__kestrum_at check; or __kestrum_at envelope; or __kestrum_at optimize' -l basis -x -a 'program standard both' -d 'Whose rules'
for command in check batch envelope
    complete -c kestrum -n "__kestrum_at $command" -l exit-zero -d 'Exit 0 whatever the verdicts'
    complete -c kestrum -n "__kestrum_at $command" -l csv-safe -d 'Nothing that a spreadsheet runs'
end
complete -c kestrum -n '__kestrum_at batch; or __kestrum_at envelope' -l no-csv-safe -d 'Texts as they are'
complete -c kestrum -n '__kestrum_at set' -l dry-run -d 'Writes nothing'
complete -c kestrum -n '__kestrum_at check; or __kestrum_at sections; or __kestrum_at fields; or __kestrum_at optimize' -l format -x -a 'text json csv' -d 'Form of the answer'
complete -c kestrum -n '__kestrum_at vortex' -l format -x -a 'text json' -d 'Form of the answer'
complete -c kestrum -n '__kestrum_at batch; or __kestrum_at envelope' -l format -x -a 'csv json ndjson' -d 'Form of the answer'
for command in check sections fields vortex batch envelope optimize
    complete -c kestrum -n "__kestrum_at $command" -l json -d 'Short for --format json'
end
for command in check sections fields table batch envelope optimize summary
    complete -c kestrum -n "__kestrum_at $command" -l delimiter -x -a 'comma semicolon tab' -d 'Between the cells of a CSV'
    complete -c kestrum -n "__kestrum_at $command" -l decimal -x -a 'point comma' -d 'Decimal sign of a CSV'
end
complete -c kestrum -n '__kestrum_at dump' -l inputs -d 'Inputs alone'
complete -c kestrum -n '__kestrum_at new' -l family -x -a '(__kestrum_families)' -d 'Section family'
complete -c kestrum -n '__kestrum_at new' -l set -x -a '(__kestrum_fields)' -d 'Value of a field'
complete -c kestrum -n '__kestrum_at diagram' -l axis -x -a 'z y' -d 'Axis of the loads'
for command in new set diagram table report batch envelope optimize merge summary
    complete -c kestrum -n "__kestrum_at $command" -s o -l output -rF -d 'File to write'
end
for command in new set batch envelope optimize
    complete -c kestrum -n "__kestrum_at $command" -l raw -d 'Unchecked'
    complete -c kestrum -n "__kestrum_at $command" -l sign -x -a 'compression+ tension+' -d 'Sign of axial forces'
end
complete -c kestrum -n '__kestrum_at batch; or __kestrum_at envelope; or __kestrum_at optimize; or __kestrum_at summary' -l base -rF -d 'Project with the other values'
complete -c kestrum -n '__kestrum_at batch' -l fields -x -d 'Columns of the answer'
complete -c kestrum -n '__kestrum_at batch; or __kestrum_at envelope; or __kestrum_at optimize' -l jobs -x -d 'Threads'
complete -c kestrum -n '__kestrum_at batch' -l keep-columns -d 'Other columns pass through'
complete -c kestrum -n '__kestrum_at batch; or __kestrum_at envelope' -l resume -d 'Go on behind the answers'
complete -c kestrum -n '__kestrum_at envelope; or __kestrum_at optimize; or __kestrum_at summary' -l key -x -d 'Column of the keys'
complete -c kestrum -n '__kestrum_at batch; or __kestrum_at envelope' -l shard -x -d 'Part of the members'
complete -c kestrum -n '__kestrum_at envelope; or __kestrum_at optimize' -l map -x -d 'What a column is'
complete -c kestrum -n '__kestrum_at envelope; or __kestrum_at optimize' -l swap-axes -d 'Exchange y and z'
complete -c kestrum -n '__kestrum_at envelope' -l all -d 'A line for each case'
complete -c kestrum -n '__kestrum_at envelope; or __kestrum_at optimize; or __kestrum_at summary' -l top -x -d 'How many'
complete -c kestrum -n '__kestrum_at envelope; or __kestrum_at optimize' -l memory -x -d 'MB to sort in'
complete -c kestrum -n '__kestrum_at optimize' -l notes -d 'Measures which deviations act in each section chosen'
complete -c kestrum -n '__kestrum_at optimize' -l exit-zero -d 'Exit 0 whatever the verdicts'
complete -c kestrum -n '__kestrum_at optimize' -l pool -rF -d 'What to choose from'
complete -c kestrum -n '__kestrum_at optimize' -l range -x -d 'Sizes of a dimension'
complete -c kestrum -n '__kestrum_at optimize' -l keep -x -d 'Dimension that stays'
complete -c kestrum -n '__kestrum_at optimize' -l steel -x -d 'Grades'
complete -c kestrum -n '__kestrum_at optimize' -l by -x -a 'mass depth price surface' -d 'What shall be smallest'
complete -c kestrum -n '__kestrum_at optimize' -l max-ir -x -d 'Largest ratio'
complete -c kestrum -n '__kestrum_at optimize' -l max-h -x -d 'Largest height'
complete -c kestrum -n '__kestrum_at optimize' -l max-b -x -d 'Largest width'
complete -c kestrum -n '__kestrum_at optimize' -l group -x -d 'Column of groups'
complete -c kestrum -n '__kestrum_at summary' -l members -rF -d 'Table of the members'
complete -c kestrum -n '__kestrum_at summary' -l raw -d 'Unchecked'
