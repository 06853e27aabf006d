# SPDX-License-Identifier: MIT
complete -c zelk -l dissociate -d 'Open consist files as before'
complete -c zelk -l version -d 'Print the version'
complete -c zelk -l help -d 'Print a short help'
