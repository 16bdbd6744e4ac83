#include <gtest/gtest.h>
#include <limits>

#include "core/base/JSON.h"
#include "core/base/JSONFileStore.h"
#include "core/base/LineJSON.h"
#include "tests/TemporaryFolder.h"

namespace ambrel {

struct Note {
  std::string text;
  Instant at;
  UUID id;
  friend bool operator==(const Note&, const Note&) = default;
};
void to_json(JSON& json, const Note& note) { json = {{"text", note.text}, {"at", note.at}, {"id", note.id}}; }
void from_json(const JSON& json, Note& note) {
  note = {json.at("text").get<std::string>(), json.at("at").get<Instant>(), json.at("id").get<UUID>()};
}

namespace {

std::string nested(int depth) { return std::string(depth, '[') + std::string(depth, ']'); }

TEST(JSONText, HostileInputIsAbsent) {
  for (const std::string& text : {std::string("\0", 1), std::string(1'000'000, '['), nested(202)})
    EXPECT_FALSE(parseJSON(text)) << text.substr(0, 20);
  for (const char* text : {"", "{", "nul", "1 2", "{'a':1}", "[1,]", "\"\xff\"", "\"\\ud800\"", "NaN"})
    EXPECT_FALSE(parseJSON(text)) << text;
  EXPECT_TRUE(parseJSON(nested(200)));
}

TEST(JSONText, IsWrittenWithSortedKeysAndRepairedText) {
  EXPECT_EQ(prettyJSON({{"b", 1}, {"a", {true, nullptr}}}),
            "{\n  \"a\": [\n    true,\n    null\n  ],\n  \"b\": 1\n}\n");
  EXPECT_EQ(compactJSON({{"b", "\xff"}, {"a", 0.5}}), "{\"a\":0.5,\"b\":\"\xEF\xBF\xBD\"}");
}

TEST(JSONFields, AreAbsentWhenMissingOrOfAnotherType) {
  const JSON json = *parseJSON(R"({"s":"x","b":true,"i":-3,"u":18446744073709551615,"d":2.9,"huge":1e300,
                                   "o":{"k":1},"a":[1],"n":null})");
  EXPECT_EQ(stringField(json, "s"), "x");
  EXPECT_EQ(boolField(json, "b"), true);
  EXPECT_EQ(integerField(json, "i"), -3);
  EXPECT_EQ(integerField(json, "d"), 2);
  EXPECT_EQ(numberField(json, "i"), -3.0);
  EXPECT_TRUE(objectField(json, "o") && arrayField(json, "a"));
  EXPECT_FALSE(stringField(json, "i") || boolField(json, "i") || numberField(json, "s") || objectField(json, "a") ||
               arrayField(json, "n") || stringField(JSON::array(), "s"));
  for (const char* key : {"u", "huge", "b"}) EXPECT_EQ(integerField(json, key), std::nullopt) << key;
}

TEST(JSONFileStore, SavesAreIdenticalToTheByteAndLoadBack) {
  const TemporaryFolder folder;
  const JSONFileStore<std::vector<Note>> store{folder / "Ambrel/notes.json"};
  EXPECT_EQ(store.load(), std::nullopt);
  const std::vector<Note> notes{{"one ✓", *parseISO8601("2026-11-21T09:00:00.5Z"), UUID::random()}};
  store.save(notes);
  const auto bytes = readFile(store.url);
  EXPECT_EQ(store.load(), notes);
  store.save(*store.load());
  EXPECT_EQ(readFile(store.url), bytes);
}

TEST(JSONFileStore, WhatDoesNotDecodeThrowsAndStays) {
  const TemporaryFolder folder;
  const JSONFileStore<std::vector<Note>> store{folder / "notes.json"};
  const std::string id = UUID::random().text();
  for (const auto& bytes :
       {std::string("{"), std::string("{}"), std::string("[{}]"), std::string(),
        R"([{"text":"a","at":"yesterday","id":")" + id + "\"}]", R"([{"text":"a","at":5,"id":")" + id + "\"}]",
        std::string(R"([{"text":"a","at":"2026-11-21T09:00:00Z","id":"no"}])")}) {
    folder.write("notes.json", bytes);
    EXPECT_THROW(store.load(), DecodingError) << bytes;
    EXPECT_EQ(readFile(store.url), bytes);
  }
  const JSONFileStore<std::vector<Note>> unreadable{folder.path()};
  EXPECT_THROW(unreadable.load(), FileError);
}

TEST(LineJSON, ReadsFieldsInPlaceAndForgives) {
  LineParser parser;
  const auto line = parser.parse(R"({"t":"a\u00e9\n","n":3.7,"i":42,"big":9223372036854775807,"huge":1e300,"b":false,
      "o":{"deep":{"t":"x"}},"list":[1,{"v":1},"s",{"v":2},null,{"v":3}],"z":null})");
  ASSERT_TRUE(line);
  EXPECT_EQ(line->text("t"), "aé\n");
  EXPECT_EQ(line->number("n"), 3.7);
  EXPECT_EQ(line->number("i"), 42.0);
  EXPECT_EQ(line->integer("n"), 3);
  EXPECT_EQ(line->integer("big"), std::numeric_limits<std::int64_t>::max());
  EXPECT_EQ(line->boolean("b"), false);
  EXPECT_EQ(line->object("o")->object("deep")->text("t"), "x");
  EXPECT_FALSE(line->text("n") || line->text("z") || line->integer("huge") || line->integer("t") ||
               line->boolean("i") || line->object("list") || line->object("missing"));

  std::vector<std::int64_t> seen;
  EXPECT_TRUE(line->eachObject("list", [&](const LineObject& each) {
    seen.push_back(each.integer("v").value_or(-1));
    return seen.size() < 2;
  }));
  EXPECT_EQ(seen, (std::vector<std::int64_t>{1, 2}));
  EXPECT_FALSE(line->eachObject("o", [](const LineObject&) { return true; }));
}

TEST(LineJSON, ABadLineIsAbsentAndTheNextOneIsRead) {
  LineParser parser;
  const std::string deep = "{\"a\":" + nested(5000) + "}";
  for (const std::string_view bad : {"", "[1]", "\"text\"", "{\"a\":1", "{\"a\":\"\xff\"}",
                                     "{\"a\":18446744073709551616x}", deep.c_str(), "{\"a\":1}{\"b\":2}"}) {
    EXPECT_FALSE(parser.parse(bad)) << bad.substr(0, 20);
    const auto good = parser.parse(R"({"a":1})");
    ASSERT_TRUE(good);
    EXPECT_EQ(good->integer("a"), 1);
  }
}

// JSON sets no limit to a number, and programs that cut a text in the middle of an emoji write half of its pair.
TEST(LineJSON, LosesNoLineToOneValueThatItCannotHold) {
  const std::pair<const char*, std::optional<double>> rows[] = {{"18446744073709551616", 18446744073709551616.0},
                                                                {"-9223372036854775809", -9223372036854775809.0},
                                                                {"-1e400", std::nullopt}};
  LineParser parser;
  for (const auto& [value, number] : rows) {
    const auto line = parser.parse(std::string(R"({"t":"8\"1e400","v":)") + value + R"(,"o":{"i":7}})");
    ASSERT_TRUE(line) << value;
    EXPECT_EQ(line->number("v"), number);
    EXPECT_EQ(line->text("t"), "8\"1e400");
    EXPECT_EQ(line->object("o")->integer("i"), 7);
  }
  const auto line =
      parser.parse(R"({"cut":"a\ud83d","low":"\ude00\ud83d\u0041","pair":"\ud83d\ude00","slash":"\\ud83d"})");
  ASSERT_TRUE(line);
  EXPECT_EQ(line->text("cut"), "a\ufffd");
  EXPECT_EQ(line->text("low"), "\ufffd\ufffdA");
  EXPECT_EQ(line->text("pair"), "\U0001F600");
  EXPECT_EQ(line->text("slash"), "\\ud83d");
}

}  // namespace
}  // namespace ambrel
