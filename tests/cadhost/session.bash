# Functions for a session in cadhost on a display of its own; to be sourced.
#
#   cadhost_start [OPTION... DRAWING...]   starts it and waits for its window; files by their paths here
#   cadhost_type TEXT                      types a line at the command line, Enter included
#   cadhost_key KEY...                     presses keys by xdotool's names
#   cadhost_click X Y                      clicks there, pixels of the screen
#   cadhost_wait_window TITLE [SECONDS]    prints the id of the visible window whose title matches
#   cadhost_wait_title TEXT [SECONDS]      waits until the frame's title contains it
#   cadhost_screenshot FILE.png            the whole display
#   cadhost_stop                           ends cadhost and the display
#
# CADHOST_BIN is the folder of the Windows programs, CADHOST_SIZE the display's and the window's size. With
# CADHOST_DISPLAY=current the display that is there is used: all programs of a Wine prefix share their screen.
# Class names and control numbers stand in cadhost/resource.h.

# Titles are Japanese, on the command lines of Windows programs too.
export LC_ALL=C.UTF-8

cadhost_root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/../.." && pwd)
CADHOST_BIN=${CADHOST_BIN:-$cadhost_root/build/windows/bin}
CADHOST_SIZE=${CADHOST_SIZE:-1280x900}
export WINEPREFIX=${WINEPREFIX:-$cadhost_root/build/windows/wineprefix}

cadhost_fail() {
  echo "cadhost session: $*" >&2
  return 1
}

# The path as a program under Wine knows it.
cadhost_path() {
  local path
  path=$(realpath -m -- "$1")
  echo "Z:${path//\//\\}"
}

cadhost_start() {
  local -a words=()
  local word
  for word in "$@"; do
    if [[ -e $word ]]; then words+=("$(cadhost_path "$word")"); else words+=("$word"); fi
  done
  cadhost_work=$(mktemp -d)
  if [[ -z ${DISPLAY:-} || ${CADHOST_DISPLAY:-} != current ]]; then cadhost_start_display || return 1; fi
  "$cadhost_root/cmake/run-under-wine" "$CADHOST_BIN/cadhost.exe" --size "$CADHOST_SIZE" "${words[@]}" \
    >"$cadhost_work/cadhost.log" 2>&1 &
  cadhost_process=$!
  cadhost_frame=$(cadhost_wait_window ' - CADHOST$' 60)
}

# Its number comes through a file: a pipe would be read before the server has it.
cadhost_start_display() {
  local tries
  : >"$cadhost_work/display"
  Xvfb -displayfd 3 -screen 0 "${CADHOST_SIZE}x24" -nolisten tcp 3>"$cadhost_work/display" \
    2>"$cadhost_work/xvfb.log" &
  cadhost_xvfb=$!
  for ((tries = 0; tries < 100; ++tries)); do
    if [[ -s $cadhost_work/display ]]; then break; fi
    sleep 0.1
  done
  [[ -s $cadhost_work/display ]] || cadhost_fail "no display: $(cat "$cadhost_work/xvfb.log")" || return 1
  export DISPLAY=:$(<"$cadhost_work/display")
}

cadhost_wait_window() {
  local found i
  for ((i = 0; i < ${2:-20} * 5; ++i)); do
    found=$(xdotool search --onlyvisible --name "$1" 2>/dev/null | tail -n 1) || true
    if [[ -n $found ]]; then
      echo "$found"
      return 0
    fi
    sleep 0.2
  done
  cadhost_fail "no window is called '$1'"
}

cadhost_wait_title() { cadhost_wait_window "$1.* - CADHOST\$" "${2:-20}" >/dev/null; }

cadhost_type() {
  xdotool type --delay 15 -- "$1"
  xdotool key Return
}

cadhost_key() { xdotool key --delay 50 "$@"; }

cadhost_click() {
  xdotool mousemove "$1" "$2"
  sleep 0.2
  xdotool click 1
}

cadhost_screenshot() { import -window root "$1"; }

cadhost_stop() {
  local process
  for process in "${cadhost_process:-}" "${cadhost_xvfb:-}"; do
    if [[ -z $process ]]; then continue; fi
    kill "$process" 2>/dev/null || true
    wait "$process" 2>/dev/null || true
  done
  rm -rf "${cadhost_work:-}"
  unset cadhost_process cadhost_xvfb cadhost_work cadhost_frame
}
