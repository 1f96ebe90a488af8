#compdef captoria-cli
# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT
#
# Completion of captoria-cli for zsh.

local curcontext=$curcontext state line ret=1
local -A opt_args
local -a commands help data command_file setting run
local videos='_files -g "*.(#i)(avi|divx)(-.)"'

commands=(
  'convert:make a .divx of each video and its subtitle files'
  'batch:make a .divx of each video that a list names'
  'info:show the streams of a video'
  'cues:list the cues of a subtitle file'
  'render:write the bitmaps of a subtitle file'
)
help=('(- *)'{-h,--help}'[show a summary]')
data='--data[the folder of the settings]:folder:_files -/'
command_file='--commands[a command file for each subtitle file]:command file:_files -g "*.(#i)cbx(-.)"'
setting='*--set[a setting instead of the stored one]:KEY=VALUE: '
run=(
  $help $data $command_file $setting
  '--remove-unknown[leave out streams of an unknown kind]'
  '--keep-temp[keep bitmaps, lists and the script]'
  '--dry-run[show what would be made, and make nothing]'
  '--json[write a line of JSON for each video]'
  '--quiet[show no progress and no warnings]'
)

_arguments -C $help '(- *)'{-V,--version}'[show the version]' '1:command:->command' '*::argument:->argument' && ret=0

case $state in
  command) _describe -t commands command commands && ret=0 ;;
  argument)
    curcontext=${curcontext%:*:*}:captoria-cli-$line[1]:
    case $line[1] in
      convert)
        _arguments $run '*--subtitle[a subtitle file]:subtitle file:_files -g "*.(#i)(srt|idx)(-.)"' \
          "*:video:$videos" && ret=0
        ;;
      batch) _arguments $run '1:list:_files' && ret=0 ;;
      info) _arguments $help '--json[write JSON]' "1:video:$videos" && ret=0 ;;
      cues)
        _arguments $help $data $command_file '--json[write JSON]' \
          '--encoding[the encoding of the file]:encoding:(${(f)"$(iconv -l 2>/dev/null | sed "s|//.*||")"})' \
          '1:subtitle file:_files -g "*.(#i)(srt|idx)(-.)"' && ret=0
        ;;
      render)
        _arguments $help $data $command_file $setting '--out[the folder for the bitmaps]:folder:_files -/' \
          '--first[number of the first cue]:number: ' '--last[number of the last cue]:number: ' \
          '--threads[threads to draw with]:number: ' '--json[write the results as JSON]' \
          '1:subtitle file:_files -g "*.(#i)srt(-.)"' && ret=0
        ;;
    esac
    ;;
esac
return ret
