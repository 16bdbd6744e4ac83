#!/usr/bin/env bash
# A weather service on this machine's loopback address, for screenshots and for trying things out by hand. Every place
# has a changeable day, told from now on; a search finds the places below that begin with what is asked for.
#
#   . script/lib/demo-weather.sh; demo_weather    starts it, on the virtual desktop that vd_start has made
#   demo_weather_defaults                         the members of the defaults that lead there
#
# For every connection the tool that listens runs this file as a program, which answers one request.

_demo_weather_listens() { grep -q 'listening on' "$vd_folder/weather.log"; }

demo_weather() {
  local port
  vd_spawn weather socat -d -d TCP-LISTEN:0,bind=127.0.0.1,fork EXEC:"bash '$(realpath "${BASH_SOURCE[0]}")'"
  vd_wait 10 _demo_weather_listens || { echo "demo weather: it does not listen" >&2; return 1; }
  port=$(sed -n 's/.*listening on .*:\([0-9]*\)$/\1/p' "$vd_folder/weather.log" | head -n 1)
  demo_weather_url="http://127.0.0.1:$port"
}

demo_weather_defaults() {
  printf '"weatherForecastURL": "%s", "weatherAirQualityURL": "%s", "weatherGeocodingURL": "%s"' \
    "$demo_weather_url" "$demo_weather_url" "$demo_weather_url"
}

# A list for JSON.
_list() { local IFS=,; printf '[%s]' "$*"; }

# _times OFFSET COUNT STEP FORMAT: local times of a place that is OFFSET seconds ahead, from the present step on.
_times() {
  local first=$((($(date +%s) + $1) / $3 * $3)) times=() i
  for ((i = 0; i < $2; i++)); do times+=("$(date -u -d "@$((first + i * $3))" "+\"$4\"")"); done
  _list "${times[@]}"
}

_forecast() {
  local offset=$(($(date +%s -ud "$(date '+%F %T')") - $(date +%s))) now=21.8 code=2 feels=19.4 dew=14.7 wind=14.2
  local hours='21.8, 22.6, 23.4, 24.3, 24.8, 24.1, 22.9'
  local highs='25.4, 23.1, 19.8, 21.2, 24.6, 26.9, 27.3' lows='14.2, 13.8, 11.9, 12.4, 14.1, 16.2, 17.0'
  case "$1" in
    *temperature_unit=fahrenheit*)
      now=71.2 feels=66.9 dew=58.5 wind=8.8 hours='71.2, 72.7, 74.1, 75.7, 76.6, 75.4, 73.2'
      highs='77.7, 73.6, 67.6, 70.2, 76.3, 80.4, 81.1' lows='57.6, 56.8, 53.4, 54.3, 57.4, 61.2, 62.6'
      ;;
    *latitude=40.*) offset=-18000 now=26.3 code=80 feels=28.0 ;;
    *latitude=35.*) offset=32400 now=30.6 code=0 feels=34.1 ;;
  esac
  cat <<EOF
{"utc_offset_seconds": $offset,
 "current": {"temperature_2m": $now, "weather_code": $code, "wind_speed_10m": $wind, "wind_direction_10m": 228,
  "apparent_temperature": $feels, "relative_humidity_2m": 64, "dew_point_2m": $dew, "uv_index": 4.35},
 "hourly": {"time": $(_times $offset 7 3600 %Y-%m-%dT%H:%M), "temperature_2m": [$hours],
  "weather_code": [2, 2, 3, 61, 80, 3, 1], "precipitation_probability": [5, 20, 55, 60, 48, 30, 12]},
 "minutely_15": {"time": $(_times $offset 9 900 %Y-%m-%dT%H:%M),
  "precipitation": [0, 0, 0.1, 0.4, 0.63, 0.2, 0, 0, 0]},
 "daily": {"time": $(_times $offset 7 86400 %Y-%m-%d), "temperature_2m_max": [$highs], "temperature_2m_min": [$lows],
  "sunrise": $(_times $offset 7 86400 %Y-%m-%dT04:58), "sunset": $(_times $offset 7 86400 %Y-%m-%dT21:12),
  "weather_code": [2, 61, 80, 3, 1, 0, 95], "uv_index_max": [6.8, 4.1, 3.2, 5.5, 6.9, 7.4, 7.1]}}
EOF
}

_places() {
  local name
  name=$(sed -n 's/.*[?&]name=\([^&]*\).*/\1/p; s/%20/ /g' <<<"$1")
  jq -c --arg name "$name" \
    '{results: [.[] | select(.[0] | ascii_downcase | startswith($name | ascii_downcase))
      | {name: .[0], admin1: .[1], country: .[2], latitude: .[3], longitude: .[4]}]}' <<'EOF'
[["Berlin", "State of Berlin", "Germany", 52.52437, 13.41053],
 ["London", "England", "United Kingdom", 51.50853, -0.12574],
 ["London", "Ontario", "Canada", 42.98339, -81.23304],
 ["Londonderry", "Northern Ireland", "United Kingdom", 54.9981, -7.30934],
 ["Springfield", "Missouri", "United States", 37.21533, -93.29824],
 ["Springfield", "Massachusetts", "United States", 42.10148, -72.58981],
 ["Springfield", "Illinois", "United States", 39.80172, -89.64371],
 ["Springfield", "Oregon", "United States", 44.04624, -123.02203],
 ["Springfield", "Ohio", "United States", 39.92423, -83.80882],
 ["Springfield", "Manitoba", "Canada", 49.92926, -96.69397],
 ["Tokyo", "Tokyo", "Japan", 35.6895, 139.69171]]
EOF
}

_answer() {
  local method target line body
  read -r method target line
  while read -r line && [ -n "${line%$'\r'}" ]; do :; done
  case "$target" in
    /v1/forecast\?*) body=$(_forecast "$target") ;;
    /v1/air-quality\?*) body='{"current": {"us_aqi": 42, "european_aqi": 27, "pm2_5": 9.1}}' ;;
    /v1/search\?*) body=$(_places "$target") ;;
    *) body='{"error": true, "reason": "no such service"}' ;;
  esac
  printf 'HTTP/1.1 200 OK\r\nContent-Type: application/json\r\nConnection: close\r\nContent-Length: %d\r\n\r\n%s' \
    "$(printf %s "$body" | wc -c)" "$body"
}

if [ "${BASH_SOURCE[0]}" = "$0" ]; then _answer; fi
