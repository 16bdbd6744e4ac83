#pragma once
// The running programs that play music or films.

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/media/MediaPlayer.h"

namespace ambrel {

enum class PlayerCommand { playPause, next, previous, raise };

// Main thread. No call waits. Players are asked only while somebody listens.
class MediaPlayers {
 public:
  virtual ~MediaPlayers() = default;

  // `handler` is called on the main thread when `players` has another answer. An empty one ends the watch.
  virtual void setChangeHandler(std::function<void()> handler) = 0;
  // By name. What was told last, until all have answered again after a pause of the watch.
  virtual std::vector<MediaPlayer> players() const = 0;
  // What comes of it is told as a change, or not at all.
  virtual void command(const std::string& id, PlayerCommand command) = 0;
  virtual void seek(const std::string& id, const std::string& track, Seconds position) = 0;
  // How far the present track is; `done` is told nothing where the player does not say, and is not called once the
  // watch has ended.
  virtual void askPosition(const std::string& id, std::function<void(std::optional<Seconds>)> done) = 0;
};

}  // namespace ambrel
