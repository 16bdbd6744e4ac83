#include <gtest/gtest.h>

#include "core/base/JSON.h"
#include "core/usage/ForeignJSON.h"

namespace ambrel {
namespace {

TEST(ForeignJSON, KeepsTheSpellingOfScalars) {
  for (const std::string scalar : {"1.0", "-0", "1e3", "1E+3", "-0.000", "12345678901234567890123", "1e999", "true",
                                   "false", "null", "\"\"", R"("\u00e9\ud83d\udE00\n\\\"")", R"("\ud83d")", "\"é😀\""}) {
    EXPECT_EQ(ForeignJSON::parse(scalar).pretty(), scalar + "\n");
  }
  // But for slashes. Keys are sorted by what they are, whatever their spelling.
  EXPECT_EQ(ForeignJSON::parse(R"({"a\/b": "\/\\/\"\/"})").pretty(), "{\n  \"a/b\": \"/\\\\/\\\"/\"\n}\n");
  EXPECT_EQ(ForeignJSON::parse(R"({"b":1,"\u0061":2,"é":3,"B":4,"a":5})").pretty(),
            "{\n  \"B\": 4,\n  \"\\u0061\": 2,\n  \"a\": 5,\n  \"b\": 1,\n  \"é\": 3\n}\n");
}

TEST(ForeignJSON, ReadsTexts) {
  EXPECT_EQ(ForeignJSON::parse(R"("a\tb\u0041\ud83d\ude00\ud83dx\/")").text(), "a\tbA😀\xEF\xBF\xBDx/");
  EXPECT_EQ(ForeignJSON::parse("1").text(), std::nullopt);
  EXPECT_EQ(ForeignJSON::parse("{}").text(), std::nullopt);
  const std::string awkward = "quote \" backslash \\ tab \t line \n bell \a é / '";
  const ForeignJSON made = ForeignJSON::ofText(awkward);
  EXPECT_EQ(made.text(), awkward);
  EXPECT_EQ(ForeignJSON::parse(made.pretty()).text(), awkward);
}

TEST(ForeignJSON, RefusesWhatIsNoJSONAndNamesTheLine) {
  for (const char* text :
       {"", " ", "{", "}", "{]", "{\"a\"}", "{\"a\":}", "{\"a\":1,}", "{a:1}", "{'a':1}", "[1,]", "[1 2]", "[",
        // Scalars.
        "01", "+1", "1.", ".5", "1e", "-", "nul", "nulll", "True", "NaN", "\"a", "\"\\x\"", "\"\\u12g4\"", "\"\\u12",
        "\"\\", "\"a\nb\"", "\"\xE9\"",
        // What is around a value.
        "{} {}", "{}x", "// a\n{}", "\xEF\xBB\xBF{}", "{\"a\":1}\x01"})
    EXPECT_THROW(ForeignJSON::parse(text), DecodingError) << text;
  EXPECT_THROW(ForeignJSON::parse(std::string("{}\0", 3)), DecodingError);
  try {
    ForeignJSON::parse("{\n\"a\": 1,\n\"b\": oops}");
    FAIL();
  } catch (const DecodingError& error) {
    EXPECT_STREQ(error.what(), "line 3: expected a value");
  }
}

TEST(ForeignJSON, BoundsTheDepth) {
  const auto nested = [](std::size_t depth) { return std::string(depth, '[') + std::string(depth, ']'); };
  EXPECT_EQ(ForeignJSON::parse(nested(1000)), ForeignJSON::parse(nested(1000)));
  EXPECT_THROW(ForeignJSON::parse(nested(1002)), DecodingError);
  EXPECT_THROW(ForeignJSON::parse(std::string(10'000'000, '[')), DecodingError);
}

TEST(ForeignJSON, TheLastOfEqualKeysCountsAndSettingLeavesOne) {
  ForeignJSON object = ForeignJSON::parse(R"({"a":"1","b":"2","a":"3"})");
  EXPECT_EQ(object.find("a")->text(), "3");
  EXPECT_EQ(object.find("c"), nullptr);
  EXPECT_EQ(ForeignJSON::parse("[]").find("a"), nullptr);
  object.set("a", ForeignJSON::ofText("4"));
  EXPECT_EQ(object, ForeignJSON::parse(R"({"b":"2","a":"4"})"));
  object.remove("b");
  object.remove("c");
  EXPECT_EQ(object, ForeignJSON::parse(R"({"a":"4"})"));
}

}  // namespace
}  // namespace ambrel
