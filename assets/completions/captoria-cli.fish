# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT
#
# Completion of captoria-cli for fish.

complete -c captoria-cli -f
complete -c captoria-cli -s h -l help -d 'Show a summary'
complete -c captoria-cli -n __fish_use_subcommand -s V -l version -d 'Show the version'
complete -c captoria-cli -n __fish_use_subcommand -a convert -d 'Make a .divx of each video'
complete -c captoria-cli -n __fish_use_subcommand -a batch -d 'Make a .divx of each video of a list'
complete -c captoria-cli -n __fish_use_subcommand -a info -d 'Show the streams of a video'
complete -c captoria-cli -n __fish_use_subcommand -a cues -d 'List the cues of a subtitle file'
complete -c captoria-cli -n __fish_use_subcommand -a render -d 'Write the bitmaps of a subtitle file'

set -l run '__fish_seen_subcommand_from convert batch'
complete -c captoria-cli -n '__fish_seen_subcommand_from convert' -l subtitle -rF -d 'A subtitle file'
complete -c captoria-cli -n $run -l remove-unknown -d 'Leave out streams of an unknown kind'
complete -c captoria-cli -n $run -l keep-temp -d 'Keep bitmaps, lists and the script'
complete -c captoria-cli -n $run -l dry-run -d 'Show what would be made, and make nothing'
complete -c captoria-cli -n $run -l quiet -d 'Show no progress and no warnings'

set -l some '__fish_seen_subcommand_from convert batch cues render'
complete -c captoria-cli -n $some -l data -xa '(__fish_complete_directories)' -d 'The folder of the settings'
complete -c captoria-cli -n $some -l commands -xka '(__fish_complete_suffix .cbx)' -d 'A command file'
complete -c captoria-cli -n '__fish_seen_subcommand_from convert batch render' -l set -x -d 'KEY=VALUE'
complete -c captoria-cli -n '__fish_seen_subcommand_from convert batch info cues render' -l json -d 'Write JSON'

complete -c captoria-cli -n '__fish_seen_subcommand_from cues' -l encoding -d 'The encoding of the file' \
    -xa '(iconv -l 2>/dev/null | string replace -a // "" | string split -n " ")'

set -l render '__fish_seen_subcommand_from render'
complete -c captoria-cli -n $render -l out -xa '(__fish_complete_directories)' -d 'The folder for the bitmaps'
complete -c captoria-cli -n $render -l first -x -d 'Number of the first cue'
complete -c captoria-cli -n $render -l last -x -d 'Number of the last cue'
complete -c captoria-cli -n $render -l threads -x -d 'Threads to draw with'

# Files with the usual extension come first.
complete -c captoria-cli -n '__fish_seen_subcommand_from convert info' -ka '(__fish_complete_suffix .avi)'
complete -c captoria-cli -n '__fish_seen_subcommand_from cues render' -ka '(__fish_complete_suffix .srt)'
complete -c captoria-cli -n '__fish_seen_subcommand_from batch' -F
