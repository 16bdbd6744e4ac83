#pragma once
// Programs that play music or films, and which of them is shown.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/base/Instant.h"

namespace ambrel {

enum class PlaybackStatus { stopped, paused, playing };

struct MediaPlayer {
  std::string id = {};    // of the running program
  std::string name = {};  // as people know it: "VLC media player"
  PlaybackStatus status = PlaybackStatus::stopped;
  std::string track = {};                           // which the position belongs to; empty when the player names none
  std::string title = {}, artist = {}, album = {};  // one line each; empty when not told
  std::string cover = {};                           // an address, file: or https:; empty without one
  std::optional<Seconds> length = {};               // more than nothing
  bool canPlay = false, canPause = false, canGoNext = false, canGoPrevious = false, canSeek = false;
  friend bool operator==(const MediaPlayer&, const MediaPlayer&) = default;
};

// The one that the user has `chosen`, as long as it runs. Else the one that plays; where several do, and where none
// does, the one that was `shown` before. Null without players.
const MediaPlayer* shownPlayer(const std::vector<MediaPlayer>& players, std::string_view chosen,
                               std::string_view shown);

// Whether a click can change anything: what plays can be paused, and what does not can be played.
bool canToggle(const MediaPlayer& player);

// "3:05", "1:02:05"; what is below nothing counts as nothing.
std::string playTime(Seconds time);

}  // namespace ambrel
