#pragma once

#include "platform/MediaPlayers.h"
#include "tests/fakes/Told.h"

namespace ambrel {

class FakeMediaPlayers : public Told<MediaPlayers> {
 public:
  std::vector<MediaPlayer> players() const override { return list; }
  void command(const std::string& id, PlayerCommand command) override { commands.emplace_back(id, command); }
  void seek(const std::string& id, const std::string&, Seconds to) override { seeks.emplace_back(id, to); }
  void askPosition(const std::string&, std::function<void(std::optional<Seconds>)> done) override {
    ++positionsAsked;
    done(position);
  }

  void set(std::vector<MediaPlayer> players) {
    change([&] { list = std::move(players); });
  }

  std::vector<MediaPlayer> list;
  std::optional<Seconds> position;
  int positionsAsked = 0;
  std::vector<std::pair<std::string, PlayerCommand>> commands;
  std::vector<std::pair<std::string, Seconds>> seeks;
};

}  // namespace ambrel
