# Starts the bar on a virtual desktop and waits for it. For scripts that have sourced virtual-desktop.sh and called
# vd_start.
#
#   bar_start PROGRAM [OPTIONS...]   starts it and brings it out; fails when it does not come within 20 seconds
#   bar_settle                       waits until the screen no longer changes
#   bar_stop                         ends it, and says what it had to complain about

bar_program=
bar_pid=

# The bar's window while it is on the screen. Buddy's bubble has the same name, and is smaller.
bar_window() {
  local window X Y WIDTH HEIGHT WINDOW SCREEN
  for window in $(xdotool search --onlyvisible --name '^Tilebay$' 2>/dev/null); do
    if eval "$(xdotool getwindowgeometry --shell "$window" 2>/dev/null)"; then echo "$((WIDTH * HEIGHT)) $window"; fi
  done | sort -rn | sed -n '1s/.* //p'
}
bar_is_out() { [ -n "$(bar_window)" ]; }
bar_geometry() { xdotool getwindowgeometry --shell "$(bar_window)" 2>/dev/null; }

# There is nothing to wait for when it has ended; the next step then says so.
bar_answers() { vd_is_gone "$bar_pid" || vd_has_name dev.qorvin.ambrel; }

# Another start of the program hands its wish to the running one.
bar_wish() { "$bar_program" "$@" >>"$vd_folder/bar.log" 2>&1; }

bar_start() {
  bar_program=$1
  xdotool mousemove 8 8
  vd_spawn bar "$@"
  bar_pid=${vd_pids[-1]}
  if ! vd_wait 20 bar_answers || vd_is_gone "$bar_pid" || ! bar_wish --reveal || ! vd_wait 20 bar_is_out; then
    cat "$vd_folder/bar.log" >&2
    return 1
  fi
  bar_hold
}

# A bar that hides by itself stays out while the pointer is on it. Its inner rim, half a padding behind the margin of
# its shadow, shows no tip and lights no tile up.
bar_hold() {
  local X Y WIDTH HEIGHT WINDOW SCREEN rim
  rim=$(awk -v scale="${QT_SCALE_FACTOR:-1}" 'BEGIN { print int(52 * scale) }')
  # Some window managers make the bar come a second time, in another window.
  vd_wait 5 bar_geometry || return
  eval "$(bar_geometry)"
  if ((WIDTH > HEIGHT)); then
    xdotool mousemove $((X + WIDTH / 2)) $((Y + rim))
  elif ((X > vd_width / 2)); then
    xdotool mousemove $((X + rim)) $((Y + HEIGHT / 2))
  else
    xdotool mousemove $((X + WIDTH - rim)) $((Y + HEIGHT / 2))
  fi
}

bar_sum() { import -silent -window root rgb:- | cksum; }

# At rest is a screen that has not changed for half a second, as a bar that ticks has every two; ten are enough.
bar_settle() {
  local deadline=$((SECONDS + 10)) last='' sum since=0
  while [ "$SECONDS" -lt "$deadline" ]; do
    sum=$(bar_sum)
    if [ "$sum" != "$last" ]; then
      last=$sum since=${EPOCHREALTIME/[.,]/}
    elif ((${EPOCHREALTIME/[.,]/} - since >= 500000)); then
      return
    fi
  done
}

bar_stop() {
  bar_wish --quit || true
  vd_wait 5 vd_is_gone "$bar_pid" || kill "$bar_pid" 2>/dev/null || true
  if [ -s "$vd_folder/bar.log" ]; then sed 's/^/bar: /' "$vd_folder/bar.log" >&2; fi
}
