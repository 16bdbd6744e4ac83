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

TEST(ClipboardJSON, OneItemWithoutARequiredKeySpoilsTheLibrary) {
  const JSON whole = JSON(ClipboardLibrary{.items = {text(1, "words")}, .collections = {{id(2), "Name"}}});
  EXPECT_NO_THROW(whole.get<ClipboardLibrary>());
  for (const char* key : {"id", "kind", "createdAt", "isPinned", "collectionIDs"}) {
    JSON broken = whole;
    broken["items"][0].erase(key);
    EXPECT_ANY_THROW(broken.get<ClipboardLibrary>()) << key;
  }
  for (const char* key : {"id", "name"}) {
    JSON broken = whole;
    broken["collections"][0].erase(key);
    EXPECT_ANY_THROW(broken.get<ClipboardLibrary>()) << key;
  }
  for (const char* key : {"items", "collections"}) {
    JSON broken = whole;
    broken.erase(key);
    EXPECT_ANY_THROW(broken.get<ClipboardLibrary>()) << key;
  }
}

TEST(ClipboardJSON, ValuesOfAnotherKindAreErrors) {
  const JSON whole = JSON(ClipboardLibrary{.items = {text(1, "words")}, .collections = {}});
  const struct {
    const char* key;
    JSON value;
  } rows[] = {{"kind", "colour"}, {"kind", 1},       {"id", "1"},           {"createdAt", "yesterday"},
              {"isPinned", 1},    {"text", 3},       {"collectionIDs", {}}, {"collectionIDs", {"x"}},
              {"text", {"a"}},    {"createdAt", 100}};
  for (const auto& row : rows) {
    JSON broken = whole;
    broken["items"][0][row.key] = row.value;
    EXPECT_ANY_THROW(broken.get<ClipboardLibrary>()) << row.key << " " << row.value;
  }
  EXPECT_ANY_THROW(JSON::array().get<ClipboardLibrary>());
}

}  // namespace
}  // namespace ambrel
