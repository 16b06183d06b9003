# What the completion offers for a line: FOLDER LINE
source $argv[1]/kestrum.fish
complete -C $argv[2] | string replace -r '\t.*' '' | sort -u
