# What the trials of the packages share: a display of their own, and the keys of a clerk. $work is theirs.
display=
server=

told() { echo "== $*"; }
fail() {
  echo "$0: $*" >&2
  exit 1
}

# The server takes a number that is free: keys must never reach another program's display.
start_display() {
  mkfifo "$work/number"
  Xvfb -displayfd 3 -screen 0 1280x1024x24 3>"$work/number" >/dev/null 2>&1 &
  server=$!
  read -r number <"$work/number"
  display=:$number
}
stop_display() { [ -z "$server" ] || kill "$server" 2>/dev/null || true; }

# Waits until a window of that title is shown on the display, and gives it the keys.
window() {
  DISPLAY=$display timeout 120 xdotool search --sync --onlyvisible --name "$1" windowfocus --sync >/dev/null \
    || fail "no window \"$1\""
  sleep 1
}
keys() { DISPLAY=$display xdotool key --delay 80 "$@"; }
type_text() { DISPLAY=$display xdotool type --delay 60 "$1"; }

sign_on() {
  window "Sign On"
  type_text NURSE; keys Tab; type_text nurse; keys Return
  window "TARVEN HEMODIALYSIS"
  sleep 2
}

# From the sign-on window to the slip on the display.
charge_seven_treatments() {
  sign_on
  keys alt+q Down Return; sleep 1
  type_text "de guz"; keys Return; sleep 2
  keys Return; sleep 1
  keys Tab; type_text D001; keys Return; sleep 1
  keys Tab Tab; type_text hc; keys Return; type_text HC001; keys Return BackSpace; type_text 7; keys Return Return
  keys Tab; sleep 1
  keys Return; sleep 5
}

# Saves the slip where the program suggests, and ends it.
save_slip() {
  keys ctrl+s; sleep 2
  keys Return; sleep 2
  keys Escape; sleep 1
  keys ctrl+x
}

# How many charges of seven treatments stand in a trial hospital.
charges_of_seven() {
  sqlite3 "$1" "select count(*) from \"BILLING..tbPatientCharges\"
                where ItemID collate binary = 'HC001' and Quantity collate binary = '7'"
}
