#pragma once
// The top stories of Hacker News, as its public service (https://hacker-news.firebaseio.com/v0) tells them.

#include <cstdint>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/base/Instant.h"

namespace ambrel {

inline constexpr std::chrono::seconds storiesInterval{900};

struct Story {
  std::int64_t id = 0;
  std::string title;    // one line
  std::string address;  // http or https; empty for a question to the readers, which has a discussion alone
  std::int64_t points = 0, comments = 0;
  friend bool operator==(const Story&, const Story&) = default;
};

struct StoryList {
  Instant fetchedAt{};
  std::vector<Story> stories;  // the top one first
  friend bool operator==(const StoryList&, const StoryList&) = default;
};
// "hacker-news.json". Throw DecodingError; a story that cannot be read is left out.
void to_json(nlohmann::json& json, const StoryList& list);
void from_json(const nlohmann::json& json, StoryList& list);

// Paths of the requests.
inline constexpr std::string_view topStoriesPath = "/v0/topstories.json";
std::string storyPath(std::int64_t id);

// The first of the answer's numbers; none for anything else.
std::vector<std::int64_t> decodeTopStories(std::string_view json, std::size_t most);
// Absent for what is no story: removed, or without a title.
std::optional<Story> decodeStory(std::string_view json);

// Where the readers talk about it.
std::string discussionOf(const Story& story);
// What a click opens.
std::string addressOf(const Story& story);

}  // namespace ambrel
