# shellcheck shell=bash disable=SC2154
# SPDX-License-Identifier: MIT
# Sourced after lib.sh: drives the ZELK process with the id $zelk and the trace log $log, on an X
# display that no other program uses. Pictures go into the folder $pictures.

limit=30 # seconds that anything may take to appear

give_up() {
  import -window root "$pictures/failed.png"
  die "$1: see $pictures/failed.png"
}

# wait_until WHAT COMMAND...: runs the command until it succeeds.
wait_until() {
  local what=$1 deadline=$((SECONDS + limit))
  shift
  until "$@"; do
    kill -0 "$zelk" 2>/dev/null || die "ZELK ended while waiting for $what"
    [ $SECONDS -lt $deadline ] || give_up "no $what within $limit s"
    sleep 0.2
  done
}

# Prints a checksum of the screen above the status bar, which shows a clock.
screen() {
  import -window root -crop "${screen_width}x$((screen_height - 40))+0+0" -depth 8 rgb:- | md5sum
}

# window_named PATTERN: finds the program's visible window whose title matches.
window_named() {
  found=$(xdotool search --all --onlyvisible --pid "$zelk" --name "$1" 2>/dev/null | head -n 1)
  [ -n "$found" ]
}

# True if the screen differs from the last picture and has stopped changing.
new_picture() {
  local now
  now=$(screen)
  [ "$now" != "$before" ] && sleep 0.5 && [ "$(screen)" = "$now" ]
}

# take_picture NAME [WINDOW]: takes a picture of the whole screen or of one window.
take_picture() {
  wait_until "picture of the $1" new_picture
  before=$(screen)
  import -window "${2:-root}" "$pictures/$1.png"
  echo "$PWD/$pictures/$1.png"
}

stock_list_filled() { grep -qs ' Done[[:cntrl:]]*$' "$log"; }

gone() { ! kill -0 "$zelk" 2>/dev/null; }

clear_pictures() {
  mkdir -p "$pictures"
  rm -f "$pictures"/*.png
  before=$(screen)
}

# Makes the main window fill the screen and gives it the keyboard focus.
show_main_window() {
  wait_until "main window" window_named '^ZELK '
  window=$found
  xdotool windowmove "$window" 0 0 windowsize "$window" "$screen_width" "$screen_height"
  xdotool windowfocus --sync "$window"
}

# main_window_alone PATTERN: true once the window with this title is closed. Focuses the main
# window, since without a window manager nothing else does.
main_window_alone() { ! window_named "$1" && xdotool windowfocus --sync "$window"; }

# leave KEY...: presses keys one after the other; ZELK must then exit.
leave() {
  local deadline=$((SECONDS + limit)) key
  for key in "$@"; do xdotool key "$key"; done
  until gone; do
    [ "$SECONDS" -lt "$deadline" ] || give_up "ZELK did not end within $limit s after $*"
    sleep 0.2
  done
}
