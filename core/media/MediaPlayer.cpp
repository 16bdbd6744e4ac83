#include "core/media/MediaPlayer.h"

#include <algorithm>
#include <fmt/format.h>

namespace ambrel {

const MediaPlayer* shownPlayer(const std::vector<MediaPlayer>& players, std::string_view chosen,
                               std::string_view shown) {
  // The best of each comes first in this order; the list's own decides between equals.
  const auto rank = [&](const MediaPlayer& player) {
    if (player.id == chosen) return 0;
    const bool wasShown = player.id == shown;
    if (player.status == PlaybackStatus::playing) return wasShown ? 1 : 2;
    if (wasShown) return 3;
    return player.status == PlaybackStatus::paused ? 4 : 5;
  };
  const auto best = std::ranges::min_element(players, {}, rank);
  return best == players.end() ? nullptr : &*best;
}

bool canToggle(const MediaPlayer& player) {
  return player.status == PlaybackStatus::playing ? player.canPause : player.canPlay;
}

std::string playTime(Seconds time) {
  constexpr double most = 359999;
  const auto seconds = time.count() > 0 ? static_cast<int>(std::min(time.count(), most)) : 0;
  if (seconds >= 3600) return fmt::format("{}:{:02}:{:02}", seconds / 3600, seconds / 60 % 60, seconds % 60);
  return fmt::format("{}:{:02}", seconds / 60, seconds % 60);
}

}  // namespace ambrel
