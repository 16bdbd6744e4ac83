#pragma once

#include "platform/MediaPlayers.h"

namespace ambrel {

class FakeMediaPlayers : public MediaPlayers {
 public:
  void setChangeHandler(std::function<void()> handler) override { handler_ = std::move(handler); }
  std::vector<MediaPlayer> players() const override { return list; }
  void command(const std::string& id, PlayerCommand command) override { commands.emplace_back(id, command); }
  void seek(const std::string& id, const std::string&, Seconds to) override { seeks.emplace_back(id, to); }
  void askPosition(const std::string&, std::function<void(std::optional<Seconds>)> done) override {
    ++positionsAsked;
    done(position);
  }

  bool isWatched() const { return handler_ != nullptr; }
  void set(std::vector<MediaPlayer> players) {
    list = std::move(players);
    if (handler_) handler_();
  }

  std::vector<MediaPlayer> list;
  std::optional<Seconds> position;
  int positionsAsked = 0;
  std::vector<std::pair<std::string, PlayerCommand>> commands;
  std::vector<std::pair<std::string, Seconds>> seeks;

 private:
  std::function<void()> handler_;
};

}  // namespace ambrel
