# SPDX-License-Identifier: MIT
set -l commands list check health sheet figures tree resave edit replace undo shape texture render thumbnail contact-sheet
set -l checks stock consist shape all use
complete -c zelkctl -s h -l help -d 'Print a short help'
complete -c zelkctl -l version -d 'Print the version'
complete -c zelkctl -l msts -x -a '(__fish_complete_directories)' -d 'Train Simulator folder'
complete -c zelkctl -n "not __fish_seen_subcommand_from $commands" -f -a "$commands"

complete -c zelkctl -n '__fish_seen_subcommand_from list' -f -a 'stock consists routes'
complete -c zelkctl -n '__fish_seen_subcommand_from list all health' -x -l filter -d 'Only names that match'
complete -c zelkctl -n '__fish_seen_subcommand_from list check health sheet figures' -l json -d 'Print a JSON array'

set -l checking '__fish_seen_subcommand_from check'
complete -c zelkctl -n "$checking; and not __fish_seen_subcommand_from $checks" -f -a "$checks"
complete -c zelkctl -n $checking -l verbose -d 'Also report what is in order'
complete -c zelkctl -n $checking -l no-index -d 'Check everything, also what has not changed'
complete -c zelkctl -n $checking -l quiet -d 'Show no progress'
complete -c zelkctl -n $checking -r -l report -d 'Append the findings to this log'
complete -c zelkctl -n $checking -l no-consists -d 'Do not look for consists (stock)'
complete -c zelkctl -n $checking -x -l route -d 'Routes to search' \
  -a '(zelkctl list routes 2>/dev/null | string replace -r "\\(.*" "")'
complete -c zelkctl -n $checking -r -l stock -d 'Stock files to look for (use)'
complete -c zelkctl -n $checking -x -l consist -d 'Consists to look for (use)' \
  -a '(zelkctl list consists 2>/dev/null)'

set -l health '__fish_seen_subcommand_from health'
complete -c zelkctl -n $health -x -l profile -a 'msts openrails both' -d 'The simulator'
complete -c zelkctl -n $health -x -l format -a 'text json sarif html csv junit' -d 'Format of the report'
complete -c zelkctl -n $health -x -l fail-on -a 'error warning note never' \
  -d 'Lowest severity that fails'
complete -c zelkctl -n $health -l routes -d 'Also the shapes and textures of the routes'
complete -c zelkctl -n $health -x -l consist -d 'Only these consists' \
  -a '(zelkctl list consists 2>/dev/null)'
complete -c zelkctl -n $health -r -l baseline -d 'Report only changes since this baseline'
complete -c zelkctl -n $health -r -l write-baseline -d 'Write a baseline to this file'
complete -c zelkctl -n $health -l verbose -d 'Also report what is in order'
complete -c zelkctl -n $health -l no-index -d 'Check everything, also what has not changed'
complete -c zelkctl -n $health -l quiet -d 'Show no progress'

complete -c zelkctl -n '__fish_seen_subcommand_from sheet' -a '(zelkctl list consists 2>/dev/null)'
complete -c zelkctl -n '__fish_seen_subcommand_from sheet' -x -l units -a 'metric us uk' -d 'Units of the text'

complete -c zelkctl -n '__fish_seen_subcommand_from edit' \
  -a 'add=Wagon, add=Engine, insert= copy= move= remove= clear forwards= backwards= flip= reverse'
complete -c zelkctl -n '__fish_seen_subcommand_from edit texture render thumbnail contact-sheet health' -r -l out -d 'The file to write'
set -l replace '__fish_seen_subcommand_from replace'
complete -c zelkctl -n $replace -l dry-run -d 'Only list the units'
complete -c zelkctl -n $replace -l activities -d 'Also in the loose consists of activities'
complete -c zelkctl -n $replace -x -l consist -d 'Only in these consists' \
  -a '(zelkctl list consists 2>/dev/null)'

complete -c zelkctl -n '__fish_seen_subcommand_from texture' -x -l level -d 'Level to save'
complete -c zelkctl -n '__fish_seen_subcommand_from render' -x -l size -d 'Width x height'
complete -c zelkctl -n '__fish_seen_subcommand_from thumbnail' -x -l size -d 'Width and height'
complete -c zelkctl -n '__fish_seen_subcommand_from render' -x -l loose -d 'Number of the loose consist'
complete -c zelkctl -n '__fish_seen_subcommand_from render' -x -l camera -d 'Camera position and target'
complete -c zelkctl -n '__fish_seen_subcommand_from render contact-sheet' -l no-loads -d 'Leave out the loads of vehicles'
set -l contact '__fish_seen_subcommand_from contact-sheet'
complete -c zelkctl -n $contact -x -l size -d 'Width of each picture'
complete -c zelkctl -n $contact -x -l filter -d 'Only stock folders that match'
complete -c zelkctl -n $contact -x -l units -a 'metric us uk' -d 'Units of the figures'
complete -c zelkctl -n $contact -a '(zelkctl list consists 2>/dev/null)'
complete -c zelkctl -n '__fish_seen_subcommand_from render' -x -l season -a 'spring summer autumn winter' -d 'Season of the textures'
complete -c zelkctl -n '__fish_seen_subcommand_from render' -l snow -d 'With textures for snow'
complete -c zelkctl -n '__fish_seen_subcommand_from render' -l night -d 'At night'
complete -c zelkctl -n '__fish_seen_subcommand_from render' -l lights -d 'With the lights of vehicles'
complete -c zelkctl -n '__fish_seen_subcommand_from render' -l wireframe -d 'Edges instead of surfaces'
complete -c zelkctl -n '__fish_seen_subcommand_from render' -l boxes -d 'With boxes for sizes and couplers'
complete -c zelkctl -n '__fish_seen_subcommand_from render' -l normals -d 'With a line along each normal'
complete -c zelkctl -n '__fish_seen_subcommand_from render' -l mark-missing -d 'Missing textures in magenta'
