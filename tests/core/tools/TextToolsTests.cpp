#include <gmock/gmock.h>

#include "core/base/JSON.h"
#include "core/base/Text.h"
#include "core/tools.h"

namespace ambrel {
namespace {

using testing::HasSubstr;
using testing::MatchesRegex;
using testing::StartsWith;

// Chance that counts up.
ToolSource source(std::string locale = "en_US") {
  return {.random =
              [next = 0u](std::span<std::uint8_t> bytes) mutable {
                for (auto& byte : bytes) byte = static_cast<std::uint8_t>(next += 37);
              },
          .now = *parseISO8601("2026-11-22T14:40:00.123Z"),
          .calendar = Calendar("UTC", locale)};
}

ToolOutcome run(DockWidget widget, std::string_view choice, std::string_view input, const ToolSource& from = source()) {
  return runTool(*textTool(widget), {choice, input, from});
}

std::string repeated(std::string_view text, std::size_t count) {
  std::string out;
  for (std::size_t i = 0; i < count; ++i) out += text;
  return out;
}

struct Case {
  DockWidget tool;
  std::string_view choice, input, output, fault;
};

TEST(TextTools, MakeOneTextOutOfAnother) {
  using enum DockWidget;
  const Case cases[]{
      // Digits, order and keys that are there twice stay.
      {jsonFormatter, "compact", " {\"b\" : 1.10, \"a\":[ ],\"b\":12345678901234567890123,\n\"c\":1e999} ",
       R"({"b":1.10,"a":[],"b":12345678901234567890123,"c":1e999})", ""},
      {jsonFormatter, "2", "\xEF\xBB\xBF{\"é\\u00e9\":{},\"x\":[1,{\"y\":null}]}",
       "{\n  \"é\\u00e9\": {},\n  \"x\": [\n    1,\n    {\n      \"y\": null\n    }\n  ]\n}", ""},
      {jsonFormatter, "2", "{\n \"é\": 1,\n}", "", "Line 3, column 1: a comma comes before the }"},
      {jsonFormatter, "2", "[\"é\" 1]", "", "Line 1, column 6: a comma or ] is expected here"},
      {jsonFormatter, "2", "[01]", "", "Line 1, column 2: a number has no leading zero"},
      {jsonFormatter, "2", "[1.]", "", "Line 1, column 4: a digit is expected here"},
      {jsonFormatter, "2", "{\"a\":\"b", "", "Line 1, column 6: this double quote is not closed"},
      {jsonFormatter, "2", "{'a':1}", "", "Line 1, column 2: a key in double quotes is expected here"},
      {jsonFormatter, "2", "1 2", "", "Line 1, column 3: there is more text after the end"},
      {jsonFormatter, "2", "\"\xE4\xBD?\"", "", "Not UTF-8 text: byte 2 is wrong"},
      {base64, "encode", "\xFF\xFE?", "//4/", ""},
      {base64, "url", "\xFF\xFE?>", "__4_Pg", ""},
      {base64, "decode", " __4_\nPg ", "\xFF\xFE?>", ""},
      {base64, "decode", "aGk*", "", "Not Base64: byte 4 is not one of its characters"},
      {base64, "decode", "aGkaG", "", "Incomplete Base64: characters at the end are missing or wrong"},
      {hash, "no such choice", "abc", "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad", ""},
      {hash, "md5", "", "d41d8cd98f00b204e9800998ecf8427e", ""},
      {hash, "sha3-256", "abc", "3a985da74fe225b2045c172d6bd390bd855f086e3e9d525b46bfe24511431532", ""},
      {hash, "blake2b512", "",
       "786a02f742015903c6c6fd852552d272912f4740e15847618a86e217f71f5419d25e1031afee585313896444934eb04b903a685b1448b75"
       "5d56"
       "f701afe9be2ce",
       ""},
      {textCounter, "characters", "👩‍👩‍👧e\u0301\r\n", "3", ""},
      {textCounter, "words", "It's 3.5 o'clock – 你好。", "4", ""},
      {textCounter, "lines", "a\r\nb\n\nc", "4", ""},
      {textCounter, "lines", "a\n", "1", ""},
      {caseConverter, "upper", "straße", "STRASSE", ""},
      {caseConverter, "title", "hello wide WORLD", "Hello Wide World", ""},
      {caseConverter, "sentence", "hello THERE. how\n3.5 ARE (you)? éa", "Hello there. How\n3.5 are (you)? Éa", ""},
      {caseConverter, "snake", "parseHTTPResponse2\nmy-Old name", "parse_http_response2\nmy_old_name", ""},
      {caseConverter, "camel", "  Crème brûlée_recipe ", "crèmeBrûléeRecipe", ""},
      {caseConverter, "constant", "İd-x", "İD_X", ""},
      {urlTools, "encode", "a/b ü?", "a%2Fb%20%C3%BC%3F", ""},
      {urlTools, "decode", "a%2Fb%20%C3%BC+", "a/b ü+", ""},
      {urlTools, "decode", "100%", "", "A % is not followed by two hexadecimal digits"},
      {urlTools, "decode", "%FF", "", "The decoded text is not UTF-8"},
      {urlTools, "clean", "https://a.b/c?utm_source=x&id=1&&FBCLID=2&q=utm_#gclid=3",
       "https://a.b/c?id=1&&q=utm_#gclid=3", ""},
      {urlTools, "clean", "see <http://a.b/?gclid=1> or\nHTTPS://c.d?x", "see <http://a.b/> or\nHTTPS://c.d?x", ""},
      {urlTools, "clean", "utm_source=x http://", "", "There is no web link in the text"},
      {urlTools, "clean", "Read https://a.b/?utm_source=n, then (https://c.d/x_(y)?fbclid=1).",
       "Read https://a.b/, then (https://c.d/x_(y)).", ""},
      {urlTools, "clean", "[https://a.b?gclid=1](https://[::1]/?gclid=2) https://c.d?gclid=3,https://e.f?gclid=4",
       "[https://a.b](https://[::1]/) https://c.d,https://e.f", ""},
      {urlTools, "parts", "https://u@a.b:81/p%20q+r?x=1+2&y#z",
       "Scheme    https\nHost      u@a.b:81\nPath      /p q+r\nQuery     x = 1 2\nQuery     y\nFragment  z", ""},
      {colorConverter, "rgb", " #2f7f86 ", "rgb(47, 127, 134)", ""},
      {colorConverter, "hex", "rgb(0 128 255 / 50%)", "#0080FF80", ""},
      {colorConverter, "hex", "hsla(-0.5turn, 100%, 25%, 1)", "#008080", ""},
      {colorConverter, "hex", "hwb(0 60% 60%)", "#808080", ""},
      {colorConverter, "hex", "oklch(62.8% 0.2577 29.23)", "#FF0000", ""},
      {colorConverter, "oklch", "#f00", "oklch(62.8% 0.2577 29.23)", ""},
      {colorConverter, "hsl", "#fff", "hsl(0, 0%, 100%)", ""},
      {colorConverter, "hwb", "#1234", "hwb(210 6.7% 80% / 0.267)", ""},
      {colorConverter, "hex", "2f7f86", "#2F7F86", ""},
      // A word, which has the letters of one by chance.
      {colorConverter, "hex", "facade", "", "Not a color in hex, rgb(), hsl(), hwb() or oklch()"},
      {colorConverter, "hex", "rgb(nan, 1, 1e999)", "", "Not a color in hex, rgb(), hsl(), hwb() or oklch()"},
      {qrCode, "high", "", "", "There is no text to encode"},
  };
  for (const Case& one : cases)
    EXPECT_EQ(run(one.tool, one.choice, one.input), (ToolOutcome{std::string(one.output), std::string(one.fault)}))
        << nameOf(one.tool) << " " << one.choice << " " << one.input;
  EXPECT_EQ(run(caseConverter, "upper", "istanbul", source("tr_TR")).output, "İSTANBUL");
}

// What is deep or long neither ends the program nor fills the memory.
TEST(TextTools, WithstandHostileInput) {
  using enum DockWidget;
  EXPECT_THAT(run(jsonFormatter, "2", repeated("[", 1000000)).fault, HasSubstr("nested deeper than 512"));
  EXPECT_THAT(run(jsonFormatter, "4", repeated("[", 500) + "1" + repeated(",1", 200000) + repeated("]", 500)).fault,
              HasSubstr("larger than 128 MiB"));
  EXPECT_EQ(run(qrCode, "high", repeated("x", 1274)).fault,
            "The text is too long for a QR code with this error correction");
  EXPECT_EQ(run(qrCode, "high", repeated("x", 1273)).fault, "");
  // Whatever the bytes, what comes out is text: all but what Base64 decodes to.
  const std::string all = [] {
    std::string bytes;
    for (int i = 255; i >= 0; --i) bytes += static_cast<char>(i);
    return bytes;
  }();
  for (const TextTool& tool : textTools())
    for (const ToolChoice& choice : tool.choices) {
      const ToolSource from = source();
      for (const std::string_view input : {std::string_view(all), std::string_view("\0", 1), std::string_view()}) {
        const ToolCall call{choice.id, input, from};
        const ToolOutcome outcome = runTool(tool, call);
        EXPECT_TRUE(isValidUTF8(outcome.output) && (outcome.fault.empty() || outcome.output.empty()))
            << nameOf(tool.widget) << " " << choice.id;
        EXPECT_FALSE(glanceAt(tool, call, outcome).value.empty()) << nameOf(tool.widget) << " " << choice.id;
      }
    }
}

TEST(TextTools, MakeTextsOutOfChanceAndTime) {
  using enum DockWidget;
  EXPECT_THAT(run(uuid, "v4", "ignored").output,
              MatchesRegex("[0-9a-f]{8}-[0-9a-f]{4}-4[0-9a-f]{3}-[89ab][0-9a-f]{3}-[0-9a-f]{12}"));
  EXPECT_THAT(run(uuid, "v7", "").output, StartsWith("01a203b3-1e7b-7"));

  ToolSource from = source();
  from.passwordLength = 4;
  EXPECT_THAT(run(password, "symbols", "", from).output,
              testing::AllOf(testing::SizeIs(4), testing::ContainsRegex("[a-z]"), testing::ContainsRegex("[A-Z]"),
                             testing::ContainsRegex("[0-9]"), testing::ContainsRegex("[^a-zA-Z0-9]")));
  from.passwordLength = 20;
  EXPECT_THAT(run(password, "digits", "", from).output, MatchesRegex("[0-9]{20}"));
  EXPECT_THAT(run(password, "words", "", from).output,
              MatchesRegex("([^aeiou][aeiou]){3}-([^aeiou][aeiou]){3}-([^aeiou][aeiou]){3}"));
  // No letter is likelier than another: of 256 bytes those go that would favour the first ones.
  from.random = [](std::span<std::uint8_t> bytes) {
    static std::uint8_t next = 0;
    for (auto& byte : bytes) byte = next++;
  };
  from.passwordLength = 250;
  const std::string digits = run(password, "digits", "", from).output;
  for (char digit = '0'; digit <= '9'; ++digit) EXPECT_EQ(std::ranges::count(digits, digit), 25) << digit;

  EXPECT_THAT(run(loremIpsum, "paragraph", "").output, StartsWith("Lorem ipsum dolor sit amet, "));
  from.loremIndex = 1;
  EXPECT_EQ(run(loremIpsum, "sentence", "", from), run(loremIpsum, "sentence", "", from));
  EXPECT_NE(run(loremIpsum, "sentence", "", from), run(loremIpsum, "sentence", ""));
}

// The bar is seen by others: no glance repeats the text.
TEST(TextTools, TellAGlanceOfTheText) {
  using enum DockWidget;
  const std::tuple<DockWidget, std::string_view, std::string_view, std::string_view> cases[]{
      {jsonFormatter, "{\"a\":1}", "Valid", "7 bytes"},
      {jsonFormatter, "{\n1}", "Not JSON", "Line 2, column 1"},
      {base64, "aGVsbG8gdGhlcmU=", "Base64", "16 bytes"},
      {hash, "abc", "ba7816bf", "SHA-256"},
      {textCounter, "one two\nthree", "13", "3 words, 2 lines"},
      {urlTools, "https://a.b?utm_x=1", "1 tracker", "1 link"},
      {qrCode, "hello", "21 × 21", "5 bytes"},
      {colorConverter, "#2F7F86", "#2F7F86", "rgb(47, 127, 134)"},
      {textCounter, "", "–", "No text copied"},
      {password, "", "••••••", "20 characters"},
  };
  for (const auto& [widget, input, value, detail] : cases) {
    const ToolSource from = source();
    const ToolCall call{"", input, from};
    const ToolGlance glance = glanceAt(*textTool(widget), call, runTool(*textTool(widget), call));
    EXPECT_EQ(glance.value, value) << nameOf(widget);
    EXPECT_EQ(glance.detail, detail) << nameOf(widget);
  }
}

}  // namespace
}  // namespace ambrel
