#include <limits>
#include <set>

#include "core/base/Text.h"
#include "core/base/UUID.h"
#include "tests/Matchers.h"

namespace ambrel {
namespace {

TEST(Text, TrimsAndSplits) {
  EXPECT_EQ(trimmed(" \t\r\n\v\f a b \n"), "a b");
  EXPECT_EQ(trimmed("   "), "");
  EXPECT_EQ(trimmed("\u00a0x"), "\u00a0x");
  EXPECT_THAT(split("", ','), ElementsAre(""));
  EXPECT_THAT(split("a,,b,", ','), ElementsAre("a", "", "b", ""));
  EXPECT_EQ(asciiLower("ÄBC-xYZ@["), "Äbc-xyz@[");
}

TEST(UTF8, IsJudgedByTheByte) {
  for (const char* valid : {"", "aé€𝄞", "\xEF\xBF\xBF", "\xF4\x8F\xBF\xBF"}) {
    EXPECT_TRUE(isValidUTF8(valid)) << valid;
    EXPECT_EQ(repairedUTF8(valid), valid);
  }
  using Row = std::pair<const char*, const char*>;
  for (const auto& [bytes, marked] :
       {Row{"a\xFFz", "a?z"}, Row{"\x80", "?"}, Row{"\xC3", "?"}, Row{"\xC3(", "?("}, Row{"\xC0\xAF", "??"},
        Row{"\xE0\x80\xAF", "???"}, Row{"\xED\xA0\x80", "???"}, Row{"\xF4\x90\x80\x80", "????"},
        Row{"\xF5\x80\x80\x80", "????"}, Row{"\xE2\x82", "??"}, Row{"\xE2\x82x", "??x"}}) {
    EXPECT_FALSE(isValidUTF8(bytes)) << testing::PrintToString(bytes);
    std::string expected;  // each question mark is a replacement character
    for (const char c : std::string_view(marked)) c == '?' ? expected += "\uFFFD" : expected += c;
    EXPECT_EQ(repairedUTF8(bytes), expected);
  }
}

std::string everyByte() {
  std::string bytes;
  for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
  return bytes;
}

TEST(Percent, EncodesEveryByteThatAPathMayHold) {
  EXPECT_EQ(percentEncodedPath("/home/a b/#1?x=50%&ü'\".db"), "/home/a%20b/%231%3Fx%3D50%25%26%C3%BC%27%22.db");
  EXPECT_EQ(percentEncodedPath("/AZaz09-._~"), "/AZaz09-._~");
  EXPECT_EQ(percentDecoded(percentEncodedPath(everyByte())), everyByte());
  EXPECT_EQ(percentDecoded("%41%4a%4A+"), "AJJ+");
  for (const char* bad : {"%", "a%", "%4", "%4g", "%g4", "%%41"}) EXPECT_EQ(percentDecoded(bad), std::nullopt) << bad;
}

TEST(Base64, FollowsTheStandardVectors) {
  const std::pair<std::string, std::string> vectors[] = {
      {"", ""}, {"fo", "Zm8="}, {"foob", "Zm9vYg=="}, {"foobar", "Zm9vYmFy"}, {"\xfb\xff", "+/8="}};
  for (const auto& [plain, encoded] : vectors) {
    EXPECT_EQ(base64Encoded(plain), encoded);
    EXPECT_EQ(base64Decoded(encoded), plain);
  }
  EXPECT_EQ(base64Decoded(base64Encoded(everyByte())), everyByte());
  for (const char* bad : {"Z", "Zg", "Zg=", "Zg==Zg==", "Z===", "====", "Zm=v", "Zm9v\n", "Zm 9", "-_8=",
                          // Bits that would be lost.
                          "Zh==", "Zm9="})
    EXPECT_EQ(base64Decoded(bad), std::nullopt) << bad;
}

TEST(Text, NumbersReadBackTheSame) {
  using Row = std::pair<double, const char*>;
  for (const auto& [value, text] : {Row{12, "12.0"}, Row{0.1, "0.1"}, Row{-0.0, "-0.0"}, Row{1e300, "1e+300"},
                                    Row{1800000000.25, "1800000000.25"}, Row{1e15, "1000000000000000.0"},
                                    Row{1e16, "1e+16"}, Row{0.00001, "1e-05"}, Row{1.0 / 3, "0.3333333333333333"}}) {
    EXPECT_EQ(shortestDecimal(value), text);
    EXPECT_EQ(std::stod(shortestDecimal(value)), value);
  }
  EXPECT_EQ(shortestDecimal(std::numeric_limits<double>::infinity()), "inf");
}

TEST(Text, QuotesForAShell) {
  EXPECT_EQ(shellQuoted(""), "''");
  EXPECT_EQ(shellQuoted("a'b $(x) `y` \\"), "'a'\\''b $(x) `y` \\'");
}

TEST(UUIDText, IsReadInEitherCaseAndWrittenInCapitals) {
  const auto id = UUID::parse("0123abcd-4567-49EF-8abc-fedcba987654");
  ASSERT_TRUE(id);
  EXPECT_EQ(id->text(), "0123ABCD-4567-49EF-8ABC-FEDCBA987654");
  EXPECT_EQ(id->bytes[0], 0x01);
  EXPECT_EQ(id->bytes[15], 0x54);
  for (const char* bad : {"", "0123abcd-4567-49ef-8abc-fedcba98765", "0123abcd-4567-49ef-8abc-fedcba9876543",
                          "0123abcd4567-49ef-8abc-fedcba9876543", "0123abcd-4567-49ef-8abc-fedcba98765g",
                          "0123abcd_4567-49ef-8abc-fedcba987654", "+123abcd-4567-49ef-8abc-fedcba987654",
                          "0-23abcd-4567-49ef-8abc-fedcba987654", "{123abcd-4567-49ef-8abc-fedcba98765}"})
    EXPECT_EQ(UUID::parse(bad), std::nullopt) << bad;
}

TEST(UUIDText, ARandomOneIsOfVersionFour) {
  std::set<UUID> seen;
  for (int i = 0; i < 200; ++i) {
    const UUID id = UUID::random();
    EXPECT_TRUE(id.bytes[6] >> 4 == 4 && id.bytes[8] >> 6 == 2) << id.text();
    EXPECT_TRUE(seen.insert(id).second);
  }
}

}  // namespace
}  // namespace ambrel
