#include <gtest/gtest.h>

#include "core/media/MediaPlayer.h"

namespace ambrel {
namespace {

TEST(ShownPlayer, FollowsTheMusicButNotAwayFromAChoice) {
  using enum PlaybackStatus;
  std::vector<MediaPlayer> players{{.id = "film", .status = stopped},
                                   {.id = "radio", .status = paused},
                                   {.id = "songs", .status = playing},
                                   {.id = "talk", .status = playing}};
  const auto shown = [&](const char* chosen, const char* before) {
    const MediaPlayer* player = shownPlayer(players, chosen, before);
    return player ? player->id : "none";
  };
  EXPECT_EQ(shown("", ""), "songs");
  EXPECT_EQ(shown("", "talk"), "talk");
  EXPECT_EQ(shown("", "radio"), "songs");
  EXPECT_EQ(shown("film", "songs"), "film");
  EXPECT_EQ(shown("gone", "talk"), "talk");
  players[2].status = players[3].status = paused;
  EXPECT_EQ(shown("", "talk"), "talk");
  EXPECT_EQ(shown("", "gone"), "radio");
  players.clear();
  EXPECT_EQ(shown("film", "film"), "none");
}

TEST(PlayTime, IsInMinutesAndHours) {
  EXPECT_EQ(playTime(Seconds(185.9)), "3:05");
  EXPECT_EQ(playTime(Seconds(3725)), "1:02:05");
  EXPECT_EQ(playTime(Seconds(-5)), "0:00");
  EXPECT_EQ(playTime(Seconds(9e18)), "99:59:59");
}

}  // namespace
}  // namespace ambrel
