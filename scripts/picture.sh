# Starts the planner on a virtual display and saves a picture of its board.
# shellcheck shell=bash

# The board's title shows a date. Looked for in plain letters: without a locale, others do not match.
board_title=' [0-9]{4}-[0-9]{2}-[0-9]{2} '

wait_for() {  # seconds, command...
  local tries=$(($1 * 10))
  shift
  until "$@"; do
    ((tries-- > 0)) || return 1
    sleep 0.1
  done
}

has_ended() {  # process
  ! kill -0 "$1" 2>/dev/null
}

find_board() {
  board=$(xdotool search --onlyvisible --name "$board_title" 2>/dev/null | head -n 1)
  [[ -n $board ]]
}

board_or_end() {  # process
  find_board || has_ended "$1"
}

take_picture() {  # program, picture
  local program=$1 picture=$2 scratch display planner
  scratch=$(mktemp -d)
  Xvfb -displayfd 3 -screen 0 1280x900x24 -dpi 96 -nolisten tcp 3>"$scratch/display" 2>"$scratch/log" &
  display=$!
  # shellcheck disable=SC2064  # the names of this moment are meant
  trap "kill $display 2>/dev/null; rm -rf '$scratch'" EXIT
  wait_for 20 test -s "$scratch/display" || { cat "$scratch/log" >&2; return 1; }
  DISPLAY=:$(<"$scratch/display")
  export DISPLAY
  QT_QPA_PLATFORM=xcb "$program" &
  planner=$!
  if ! wait_for 30 board_or_end "$planner" || [[ -z $board ]]; then
    echo "The board did not appear." >&2
    kill "$planner" 2>/dev/null || true
    return 1
  fi
  sleep 1  # the first paint follows the window
  import -window "$board" "$picture"
  kill "$planner"
  echo "No display here. A picture of the board: $picture"
}
