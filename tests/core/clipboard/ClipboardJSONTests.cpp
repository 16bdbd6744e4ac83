#include <gtest/gtest.h>

#include "core/base/JSON.h"
#include "core/clipboard/ClipboardJSON.h"
#include "tests/core/clipboard/Clips.h"

namespace ambrel {
namespace {

using namespace clips;

TEST(ClipboardJSON, HasTheKeysOfTheFile) {
  ClipItem item = collected(pinned(text(1, "words", 0.25)), 70);
  item.sourceBundleID = "org.example.editor";
  const ClipboardLibrary library{.items = {item, image(2, "ab.png", 0)}, .collections = {{id(70), "Recipes"}}};
  const auto expected = parseJSON(R"({
    "collections": [{"id": "00000000-0000-0000-0000-000000000046", "name": "Recipes"}],
    "items": [
      {"id": "00000000-0000-0000-0000-000000000001", "kind": "text", "text": "words",
       "sourceBundleID": "org.example.editor", "createdAt": "2027-01-15T08:00:00.25Z", "isPinned": true,
       "collectionIDs": ["00000000-0000-0000-0000-000000000046"]},
      {"id": "00000000-0000-0000-0000-000000000002", "kind": "image", "imageFileName": "ab.png",
       "createdAt": "2027-01-15T08:00:00Z", "isPinned": false, "collectionIDs": []}]})");
  EXPECT_EQ(JSON(library), *expected);
  EXPECT_EQ(expected->get<ClipboardLibrary>(), library);
}

TEST(ClipboardJSON, TheFileIsTheSameToTheByteAsTheWholeTreeGives) {
  const ClipItem hostile = collected(text(3, "quoted \"{\"\n  [],\r\n\t\xff\xfe and \u2028 tr\u00e8s\n"), 71);
  const ClipboardLibrary rows[] = {
      {},
      {.items = {text(1, "words")}, .collections = {}},
      {.items = {}, .collections = {{id(70), "Recipes\nand \"more\""}, {id(71), ""}}},
      {.items = {collected(hostile, 70), image(2, "ab.png"), text(4, "")}, .collections = {{id(70), "Recipes"}}}};
  for (const ClipboardLibrary& library : rows) EXPECT_EQ(fileText(library), prettyJSON(JSON(library)));
}

TEST(ClipboardJSON, OneBadEntrySpoilsTheLibrary) {
  const JSON whole = JSON(ClipboardLibrary{.items = {text(1, "words")}, .collections = {{id(2), "Name"}}});
  EXPECT_NO_THROW(whole.get<ClipboardLibrary>());
  for (const char* key :
       {"/items/0/id", "/items/0/kind", "/items/0/createdAt", "/items/0/isPinned", "/items/0/collectionIDs",
        "/collections/0/id", "/collections/0/name", "/items", "/collections"}) {
    const JSON::json_pointer pointer(key);
    JSON broken = whole;
    broken[pointer.parent_pointer()].erase(pointer.back());
    EXPECT_ANY_THROW(broken.get<ClipboardLibrary>()) << key;
  }
  const std::pair<const char*, JSON> rows[] = {
      {"kind", "colour"}, {"kind", 1}, {"id", "1"},     {"createdAt", "yesterday"}, {"createdAt", 100},
      {"isPinned", 1},    {"text", 3}, {"text", {"a"}}, {"collectionIDs", {}},      {"collectionIDs", {"x"}}};
  for (const auto& [key, value] : rows) {
    JSON broken = whole;
    broken["items"][0][key] = value;
    EXPECT_ANY_THROW(broken.get<ClipboardLibrary>()) << key << " " << value;
  }
  EXPECT_ANY_THROW(JSON::array().get<ClipboardLibrary>());
}

}  // namespace
}  // namespace ambrel
