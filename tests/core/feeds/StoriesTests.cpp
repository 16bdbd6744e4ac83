#include <gtest/gtest.h>

#include "core/base/JSON.h"
#include "core/feeds/Stories.h"

namespace ambrel {
namespace {

TEST(Stories, AreReadFromWhatTheServiceSays) {
  const auto story = decodeStory(
      R"({"id":42,"type":"story","by":"ann","title":"Why &quot;a &lt; b&quot; isn&#x27;t &amp;lt;","url":"https://a.example/x","score":512,"descendants":143})");
  ASSERT_TRUE(story);
  EXPECT_EQ(story->title, "Why \"a < b\" isn't &lt;");
  EXPECT_EQ(addressOf(*story), "https://a.example/x");
  EXPECT_EQ(story->points + story->comments, 655);
  const auto question = decodeStory("{\"id\":7,\"title\":\"Ask: a\\u202eb\\n\\tc\",\"score\":-1}");
  ASSERT_TRUE(question);
  EXPECT_EQ(question->title, "Ask: ab c");
  EXPECT_EQ(addressOf(*question), "https://news.ycombinator.com/item?id=7");
  EXPECT_EQ(question->points, 0);
  EXPECT_EQ(decodeStory(R"json({"id":7,"title":"x","url":"javascript:alert(1)"})json")->address, "");
  for (const char* none : {"null", "[]", "{", R"({"id":7})", R"({"id":-1,"title":"x"})", R"({"id":7,"title":" "})",
                           R"({"id":7,"title":"x","deleted":true})", R"({"id":7,"title":"x","dead":true})"})
    EXPECT_FALSE(decodeStory(none)) << none;
  EXPECT_EQ(decodeTopStories(R"([3,"x",-1,2.5,9,8])", 2), (std::vector<std::int64_t>{3, 9}));
  EXPECT_TRUE(decodeTopStories("{}", 2).empty());
}

TEST(Stories, AreKeptAsTheyAre) {
  const StoryList list{*parseISO8601("2026-11-22T09:00:00Z"), {{1, "a &lt; b", "https://a.example/", 5, 6}}};
  EXPECT_EQ(JSON(list).get<StoryList>(), list);
  JSON broken = list;
  broken["stories"].push_back({{"id", "x"}});
  EXPECT_EQ(broken.get<StoryList>(), list);
}

}  // namespace
}  // namespace ambrel
