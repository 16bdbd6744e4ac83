#!/usr/bin/env bash
# A virtual desktop: an X server without a screen, a window manager, and what else is asked for. It ends with the
# shell that started it, and leaves nothing behind.
#
# Run it:     script/lib/virtual-desktop.sh [OPTIONS] -- COMMAND [ARGUMENTS...]
#             Starts the desktop, runs the command on it and ends with its status; 77 when there is no Xvfb.
# Source it:  source script/lib/virtual-desktop.sh; vd_start [OPTIONS]; ...; vd_screenshot FILE; vd_stop
#
#   --geometry WIDTHxHEIGHT   the size of the screen in pixels (1600x900)
#   --scale FACTOR            QT_SCALE_FACTOR for the programs on it (1)
#   --compositor              with picom, for translucent windows
#   --notifications           with dunst as the notification daemon
#   --panel                   with tint2 at the lower edge, which has a tray
#   --wm NAME                 the window manager: openbox (the usual one), xfwm4, marco, mutter, kwin_x11, i3, awesome or
#                             bspwm
#   --no-wm                   without a window manager
#   --wayland NAME            a Wayland compositor in the place of the X server and its window manager: sway, labwc,
#                             kwin_wayland, or mutter with its XWayland
#   --wallpaper COLOR[,COLOR] the root window's colour, or a gradient of two
#   --activation              D-Bus may start services by their names (not for tests: it would start what is installed)

vd_pids=()
vd_folder=
vd_tied=()
if command -v setpriv >/dev/null; then vd_tied=(setpriv --pdeathsig TERM); fi

vd_fail() {
  echo "virtual desktop: $*" >&2
  vd_stop
  return 1
}

# Until the command succeeds, at most so many seconds.
vd_wait() {
  local deadline=$((SECONDS + $1))
  shift
  until "$@" >/dev/null 2>&1; do
    [ "$SECONDS" -lt "$deadline" ] || return 1
    sleep 0.02
  done
}

# Starts a program in the background; it ends with us even when we are killed (setpriv sees to that).
vd_spawn() {
  local log=$1
  shift
  "${vd_tied[@]}" "$@" >"$vd_folder/$log.log" 2>&1 </dev/null &
  vd_pids+=($!)
}

# Runs a program in the foreground; a signal that ends us ends it too.
vd_run() {
  "${vd_tied[@]}" "$@" <&0 &
  local pid=$! status=0
  vd_pids+=("$pid")
  wait "$pid" || status=$?
  unset 'vd_pids[-1]'
  return "$status"
}

vd_has_wm() { xprop -root _NET_SUPPORTING_WM_CHECK | grep -q 'window id'; }
vd_has_compositor() { xwininfo -root -tree | grep -qi picom; }
vd_has_panel() { xprop -root _NET_WORKAREA | grep -vq ", $vd_height"'\b'; }
vd_has_name() {
  dbus-send --session --print-reply --dest=org.freedesktop.DBus /org/freedesktop/DBus \
    org.freedesktop.DBus.NameHasOwner "string:$1" | grep -q 'boolean true'
}

vd_start_server() {
  # The server takes a free number and tells it.
  vd_spawn server Xvfb -displayfd 3 -screen 0 "${vd_width}x${vd_height}x24" -nolisten tcp -noreset \
    3>"$vd_folder/display.number"
  vd_wait 10 test -s "$vd_folder/display.number" || { vd_fail "Xvfb did not start: $(tail -n 1 "$vd_folder/server.log")"; return 1; }
  DISPLAY=":$(tr -d '\n' <"$vd_folder/display.number")"
  export DISPLAY
}

# The compositor runs as somebody else where we are root, which it refuses to be; it then needs a folder of its own.
vd_start_compositor() {
  local folder=$vd_folder/compositor as=() command=("$1") user=65534
  mkdir -m 700 "$folder"
  case "$1" in
    sway)
      printf 'output HEADLESS-1 resolution %sx%s\nxwayland disable\n' "$vd_width" "$vd_height" >"$folder/config"
      command+=(-c "$folder/config")
      export SWAYSOCK=$folder/ipc
      ;;
    labwc)
      printf '<?xml version="1.0"?><labwc_config/>' >"$folder/rc.xml"
      command+=(-C "$folder")
      ;;
    kwin_wayland)
      # Every program may have the interfaces that it keeps for those whose desktop entries ask for them.
      export KWIN_WAYLAND_NO_PERMISSION_CHECKS=1
      # In a window that fills an X server: it has nothing of its own that would show its screen or take keys.
      vd_start_server || return
      export VIRTUAL_DESKTOP_HOST=$DISPLAY
      # As a session has it, which starts it again after a crash.
      command=(kwin_wayland_wrapper --x11-display "$DISPLAY" --width "$vd_width" --height "$vd_height" --socket wayland-0 --no-lockscreen)
      ;;
    mutter)
      # It makes this one as its umask wants, and then does not want it.
      mkdir -m 1777 -p /tmp/.X11-unix
      command+=(--headless --wayland --virtual-monitor "${vd_width}x$vd_height")
      ;;
  esac
  case "$1" in
    kwin_wayland|mutter)
      # It would report to a test that plays the accessibility bus, and wait for its answers.
      command=(env AT_SPI_BUS_ADDRESS=disabled: "${command[@]}")
      # It wants the bus, which lets nobody else in.
      user=
      ;;
  esac
  if [ -n "$user" ] && [ "$(id -u)" -eq 0 ]; then
    as=(setpriv --pdeathsig TERM --reuid=$user --regid=$user --clear-groups)
    chown -R $user:$user "$folder"
    chmod 711 "$vd_folder"
  fi
  vd_spawn compositor env -u DISPLAY -u WAYLAND_DISPLAY HOME="$folder" XDG_RUNTIME_DIR="$folder" WLR_BACKENDS=headless \
    WLR_LIBINPUT_NO_DEVICES=1 WLR_RENDERER=pixman GSETTINGS_BACKEND=memory "${as[@]}" "${command[@]}"
  export VIRTUAL_DESKTOP_COMPOSITOR_PID=${vd_pids[-1]}
  vd_wait 10 vd_has_socket "$folder" || { vd_fail "$1 did not start: $(tail -n 1 "$vd_folder/compositor.log")"; return 1; }
  # The toolkit of a test has no windows of its own here.
  export WAYLAND_DISPLAY XDG_SESSION_TYPE=wayland QT_QPA_PLATFORM=offscreen
  WAYLAND_DISPLAY=$(vd_socket "$folder")
  unset DISPLAY
  if [ "$1" = mutter ]; then
    vd_wait 10 grep -q 'public X11 display' "$vd_folder/compositor.log" || { vd_fail "mutter has no XWayland"; return 1; }
    DISPLAY=$(sed -n 's/.*public X11 display \(:[0-9]*\).*/\1/p' "$vd_folder/compositor.log")
    XAUTHORITY=$(find "$folder" -name '.mutter-Xwaylandauth*')
    export DISPLAY XAUTHORITY
  fi
}
vd_socket() { find "$1" -name 'wayland-*' -type s | head -n 1; }
vd_has_socket() { [ -n "$(vd_socket "$1")" ]; }

vd_start_bus() {
  local services=
  if [ -n "$1" ]; then services='<standard_session_servicedirs/>'; fi
  cat >"$vd_folder/bus.conf" <<EOF
<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
  "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:path=$vd_folder/bus</listen>
  <auth>EXTERNAL</auth>
  $services
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
EOF
  export DBUS_SESSION_BUS_ADDRESS="unix:path=$vd_folder/bus"
  vd_spawn bus dbus-daemon --nofork --nopidfile --config-file="$vd_folder/bus.conf"
  vd_wait 10 test -S "$vd_folder/bus" || vd_fail "no session bus: $(tail -n 1 "$vd_folder/bus.log")"
}

vd_start_notifications() {
  printf '[global]\n    font = Inter 10\n    markup = full\n    origin = top-right\n    offset = 24x24\n' >"$vd_folder/dunstrc"
  vd_spawn dunst dunst -conf "$vd_folder/dunstrc"
  vd_wait 10 vd_has_name org.freedesktop.Notifications || vd_fail "dunst did not start"
}

vd_start_panel() {
  cat >"$vd_folder/tint2rc" <<'EOF'
panel_items = TS
panel_position = bottom center horizontal
panel_size = 100% 30
strut_policy = follow_size
systray = 1
EOF
  vd_spawn tint2 tint2 -c "$vd_folder/tint2rc"
  vd_wait 10 vd_has_panel || vd_fail "tint2 did not start"
}

vd_xfconfd() { ls /usr/lib/*/xfce4/xfconf/xfconfd /usr/libexec/xfce4/xfconf/xfconfd 2>/dev/null | head -n 1; }

# With a folder of its own for what it keeps, so that nothing of the user's decides.
vd_start_wm() {
  local command=()
  mkdir -p "$vd_folder/wm/config"
  case "$1" in
    openbox) command=(openbox --sm-disable) ;;
    xfwm4)
      command=(xfwm4 --compositor=off)
      vd_spawn xfconf env HOME="$vd_folder/wm" XDG_CONFIG_HOME="$vd_folder/wm/config" "$(vd_xfconfd)"
      vd_wait 10 vd_has_name org.xfce.Xfconf || { vd_fail "xfconfd did not start"; return 1; }
      ;;
    marco) command=(marco --no-composite --sm-disable) ;;
    mutter) command=(mutter --x11) ;;
    kwin_x11) command=(kwin_x11) ;;
    i3)
      printf 'font pango:monospace 10\nbar {\n  position bottom\n}\n' >"$vd_folder/wm/i3"
      command=(i3 -c "$vd_folder/wm/i3")
      ;;
    awesome) command=(awesome) ;;
    bspwm)
      printf '#!/bin/sh\nbspc monitor -d 1 2\n' >"$vd_folder/wm/bspwmrc"
      chmod +x "$vd_folder/wm/bspwmrc"
      command=(bspwm -c "$vd_folder/wm/bspwmrc")
      ;;
    *) echo "virtual desktop: unknown window manager '$1'" >&2; return 2 ;;
  esac
  if ! command -v "$1" >/dev/null; then
    vd_fail "$1 is not installed (script/bootstrap desktop installs it)"
    return 77
  fi
  vd_spawn wm env HOME="$vd_folder/wm" XDG_CONFIG_HOME="$vd_folder/wm/config" XDG_DATA_HOME="$vd_folder/wm/data" \
    XDG_CACHE_HOME="$vd_folder/wm/cache" GSETTINGS_BACKEND=memory NO_AT_BRIDGE=1 "${command[@]}"
  export VIRTUAL_DESKTOP_WM_PID=${vd_pids[-1]}
  vd_wait 20 vd_has_wm || vd_fail "$1 did not start: $(tail -n 1 "$vd_folder/wm.log")"
}

vd_start() {
  local geometry=1600x900 scale=1 compositor= notifications= panel= wm=openbox wallpaper='#22304a,#5b4a78' activation= wayland=
  while [ $# -gt 0 ]; do
    case "$1" in
      --geometry) geometry=$2; shift 2 ;;
      --scale) scale=$2; shift 2 ;;
      --wallpaper) wallpaper=$2; shift 2 ;;
      --compositor) compositor=1; shift ;;
      --notifications) notifications=1; shift ;;
      --panel) panel=1; shift ;;
      --activation) activation=1; shift ;;
      --wm) wm=$2; shift 2 ;;
      --no-wm) wm=; shift ;;
      --wayland) wayland=$2; shift 2 ;;
      *) echo "virtual desktop: unknown option '$1'" >&2; return 2 ;;
    esac
  done
  if [[ ! $geometry =~ ^([0-9]+)x([0-9]+)$ ]]; then
    echo "virtual desktop: '$geometry' is no WIDTHxHEIGHT" >&2
    return 2
  fi
  vd_width=${BASH_REMATCH[1]} vd_height=${BASH_REMATCH[2]}
  local server=${wayland:-Xvfb}
  if ! command -v "$server" >/dev/null; then
    echo "virtual desktop: $server is not installed (script/bootstrap desktop installs it)" >&2
    return 77
  fi

  vd_folder=$(mktemp -d "${TMPDIR:-/tmp}/virtual-desktop.XXXXXX")
  chmod 700 "$vd_folder"
  trap vd_stop EXIT
  trap 'exit 130' INT
  trap 'exit 143' TERM HUP
  mkdir -m 700 "$vd_folder/runtime"
  export XDG_RUNTIME_DIR="$vd_folder/runtime" XDG_SESSION_TYPE=x11 QT_QPA_PLATFORM=xcb
  unset WAYLAND_DISPLAY XAUTHORITY
  if [ "$scale" != 1 ]; then export QT_SCALE_FACTOR=$scale; fi

  if [ -n "$wayland" ]; then
    vd_start_bus "$activation" || return 1
    vd_start_compositor "$wayland" || return 1
    if [ -n "$notifications" ]; then vd_start_notifications || return 1; fi
    return
  fi
  vd_start_server || return 1
  vd_start_bus "$activation" || return 1
  if [ -n "$wm" ]; then vd_start_wm "$wm" || return; fi
  if command -v hsetroot >/dev/null; then
    case "$wallpaper" in
      *,*) hsetroot -add "${wallpaper%,*}" -add "${wallpaper#*,}" -gradient 145 >/dev/null 2>&1 || true ;;
      *) hsetroot -solid "$wallpaper" >/dev/null 2>&1 || true ;;
    esac
  fi
  if [ -n "$compositor" ]; then
    # A file of our own: picom restarts whenever its configuration is written to, and everybody writes to /dev/null.
    : >"$vd_folder/picom.conf"
    vd_spawn picom picom --backend xrender --config "$vd_folder/picom.conf"
    vd_wait 10 vd_has_compositor || { vd_fail "picom did not start"; return 1; }
  fi
  if [ -n "$panel" ]; then vd_start_panel || return 1; fi
  if [ -n "$notifications" ]; then vd_start_notifications || return 1; fi
}

# The whole screen, as the compositor shows it.
vd_screenshot() {
  if [ -n "${WAYLAND_DISPLAY:-}" ]; then grim "$1"; else import -silent -window root "$1"; fi
}

vd_stop() {
  local pid i
  # The last ones first: the server goes when its clients have gone.
  for ((i = ${#vd_pids[@]} - 1; i >= 0; i--)); do
    pid=${vd_pids[i]}
    kill "$pid" 2>/dev/null || continue
    vd_wait 3 vd_is_gone "$pid" || kill -KILL "$pid" 2>/dev/null || true
    wait "$pid" 2>/dev/null || true
  done
  vd_pids=()
  if [ -n "$vd_folder" ]; then rm -rf "$vd_folder"; fi
  vd_folder=
}

vd_is_gone() {
  case "$(ps -o stat= -p "$1")" in
    ''|Z*) return 0 ;;
    *) return 1 ;;
  esac
}

if [ "${BASH_SOURCE[0]}" = "$0" ]; then
  set -euo pipefail
  options=()
  while [ $# -gt 0 ] && [ "$1" != -- ]; do
    options+=("$1")
    shift
  done
  if [ $# -lt 2 ]; then
    sed -n '2,20s/^# \{0,1\}//p' "$0" >&2
    exit 2
  fi
  shift
  vd_start "${options[@]}"
  status=0
  vd_run "$@" || status=$?
  exit "$status"
fi
