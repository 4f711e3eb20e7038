# Functions for the module's dialogs in cadhost; to be sourced behind session.bash by a script that has set `probe`.
# With KIV_PICTURES set to a folder, pictures of the way are left there.
#
#   picture NAME          leaves a picture
#   click TITLE ID        clicks the middle of a control of the visible dialog of that title
#   opened TITLE          waits until the dialog is open for the display, which takes the clicks, and for Wine,
#                         which takes the keys
#   closed TITLE          waits until it is gone
#   fills TITLE ID TEXT   types into a control, in place of what it holds
#   enters TITLE TEXT     a value into the value picker that is open
#   row N                 selects the row N below the root; the tree has the keyboard then
#   menu KEY...           the context menu of the selected row, then the keys that walk through it
#   saves NAME REMARK     the specification, from the main dialog

self=$(basename -- "$0")

step=0
picture() {
  if [[ -n ${KIV_PICTURES:-} ]]; then
    step=$((step + 1))
    cadhost_screenshot "$KIV_PICTURES/$(printf '%s-%02d-%s.png' "$self" "$step" "$1")" || true
  fi
}
fail() {
  echo "$self: $*" >&2
  exit 1
}

ask_probe() { "$cadhost_root/cmake/run-under-wine" "$probe" "$@" | tr -d '\r'; }

click() {
  local place
  # A dialog that has just come may still be making its controls.
  place=$(ask_probe control "$1" "$2") || { sleep 1 && place=$(ask_probe control "$1" "$2"); } || fail "no control $2 in '$1'"
  # shellcheck disable=SC2086
  xdotool mousemove $place
  sleep 0.05
  xdotool click 1
  sleep 0.1
}
keys() {
  xdotool key --delay 30 "$@"
  sleep 0.1
}
typed() {
  xdotool type --delay 30 -- "$1"
  sleep 0.2
}
opened() {
  cadhost_wait_window "^$(sed 's/[][()]/\\&/g' <<<"$1")\$" 20 >/dev/null || fail "'$1' does not open"
  ask_probe active "$1" || fail "'$1' has not got the keyboard"
}
closed() { ask_probe gone "$1" || fail "'$1' stays open"; }

# A character that the display's keyboard lacks gets a key for the moment that it is typed: one may come too
# late, and is typed again.
fills() {
  local delay
  click "$1" "$2"
  for delay in 20 80 300 300; do
    xdotool key ctrl+a
    xdotool type --delay "$delay" -- "$3"
    sleep 0.1
    if [[ $(ask_probe text "$1" "$2") == "$3" ]]; then return 0; fi
  done
  fail "'$3' cannot be typed into control $2 of '$1'"
}

enters() {
  opened "$1"
  fills "$1" 1013 "$2"
  keys Return
  closed "$1"
}

menu() {
  opened "$main"
  keys Menu
  ask_probe menu || fail 'no context menu opens'
  keys "$@"
}

row() {
  click "$main" 1218
  keys Home
  # shellcheck disable=SC2046
  keys $(printf 'Down %.0s' $(seq "$1"))
}

main=ﾌｧｲﾙ変換
title=ﾌｧｲﾙ変換ﾕｰﾃｨﾘﾃｨ
load='ﾌｧｲﾙ変換ﾕｰﾃｨﾘﾃｨ　［呼出し］'
save='ﾌｧｲﾙ変換ﾕｰﾃｨﾘﾃｨ　［保存]'

saves() {
  click "$main" 1024
  opened "$save"
  fills "$save" 1305 "$1"
  fills "$save" 1306 "$2"
  picture save
  keys Return
  closed "$save"
}
