#include "core/feeds/Stories.h"

#include <array>

#include "core/base/JSON.h"
#include "core/base/SentLine.h"
#include "core/web/Address.h"

namespace ambrel {
namespace {

// The service writes titles as HTML, in which nothing but these marks occurs.
std::string withoutEntities(std::string text) {
  static constexpr std::array<std::pair<std::string_view, char>, 7> entities{{{"&lt;", '<'},
                                                                              {"&gt;", '>'},
                                                                              {"&quot;", '"'},
                                                                              {"&#x27;", '\''},
                                                                              {"&#39;", '\''},
                                                                              {"&#x2F;", '/'},
                                                                              {"&amp;", '&'}}};
  for (std::size_t at = text.find('&'); at != std::string::npos; at = text.find('&', at + 1))
    for (const auto& [entity, character] : entities)
      if (text.compare(at, entity.size(), entity) == 0) {
        text.replace(at, entity.size(), 1, character);
        break;
      }
  return text;
}

std::optional<Story> storyFrom(const JSON& json, const std::optional<std::string>& title) {
  const auto id = integerField(json, "id");
  if (!id || *id <= 0 || !title) return std::nullopt;
  Story story{.id = *id, .title = sentLine(*title), .address = {}};
  if (const auto address = stringField(json, "url"); address && address->size() <= 2048)
    story.address = pageAddress(*address).value_or("");
  story.points = std::max<std::int64_t>(0, integerField(json, "score").value_or(0));
  story.comments = std::max<std::int64_t>(0, integerField(json, "descendants").value_or(0));
  return story.title.empty() ? std::nullopt : std::optional(std::move(story));
}

}  // namespace

void to_json(JSON& json, const StoryList& list) {
  JSON stories = JSON::array();
  for (const Story& story : list.stories)
    stories.push_back({{"id", story.id},
                       {"title", story.title},
                       {"url", story.address},
                       {"score", story.points},
                       {"descendants", story.comments}});
  json = {{"fetchedAt", list.fetchedAt}, {"stories", std::move(stories)}};
}

void from_json(const JSON& json, StoryList& list) {
  list.fetchedAt = json.at("fetchedAt").get<Instant>();
  list.stories.clear();
  for (const JSON& entry : json.at("stories"))
    if (auto story = storyFrom(entry, stringField(entry, "title"))) list.stories.push_back(std::move(*story));
}

std::string storyPath(std::int64_t id) { return "/v0/item/" + std::to_string(id) + ".json"; }

std::vector<std::int64_t> decodeTopStories(std::string_view text, std::size_t most) {
  std::vector<std::int64_t> ids;
  const auto json = parseJSON(text);
  if (!json || !json->is_array()) return ids;
  for (const JSON& id : *json)
    if (ids.size() < most && id.is_number_integer() && id.get<std::int64_t>() > 0)
      ids.push_back(id.get<std::int64_t>());
  return ids;
}

std::optional<Story> decodeStory(std::string_view text) {
  const auto json = parseJSON(text);
  if (!json || !json->is_object()) return std::nullopt;
  if (boolField(*json, "deleted").value_or(false) || boolField(*json, "dead").value_or(false)) return std::nullopt;
  auto title = stringField(*json, "title");
  if (title) title = withoutEntities(std::move(*title));
  return storyFrom(*json, title);
}

std::string discussionOf(const Story& story) {
  return "https://news.ycombinator.com/item?id=" + std::to_string(story.id);
}

std::string addressOf(const Story& story) { return story.address.empty() ? discussionOf(story) : story.address; }

}  // namespace ambrel
