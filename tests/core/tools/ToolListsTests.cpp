#include <gmock/gmock.h>

#include "core/base/Files.h"
#include "core/base/JSON.h"
#include "core/tools/EmojiList.h"
#include "core/tools/Translation.h"
#include "core/tools/Units.h"

namespace ambrel {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

const std::string file = readFile(AMBREL_CASES "/tools/emoji-test.txt").value();

TEST(EmojiList, HoldsEachOnceWithItsTones) {
  const auto list = parseEmojiList(file);
  ASSERT_EQ(list.size(), 4u);
  EXPECT_EQ(list[1], (Emoji{"☺️", "smiling face", "Smileys & Emotion", "face-smiling", {}}));
  EXPECT_THAT(list[3].tones, ElementsAre("✋🏻", "✋🏼", "✋🏽", "✋🏾", "✋🏿"));
  EXPECT_TRUE(parseEmojiList("\0\xFF;#").empty());
}

TEST(EmojiList, IsSearchedByTheBeginningsOfWords) {
  const auto list = parseEmojiList(file);
  const auto found = [&](std::string_view query) {
    std::vector<std::string> texts;
    for (const Emoji* emoji : emojiMatching(list, query, {})) texts.push_back(emoji->text);
    return texts;
  };
  EXPECT_THAT(found("Cat"), ElementsAre("😺"));
  EXPECT_THAT(found("face grin"), ElementsAre("😀", "😺"));
  // What begins with it comes before what has it somewhere.
  EXPECT_THAT(found("smiling"), ElementsAre("☺️", "😀"));
  EXPECT_THAT(found("at"), ElementsAre());
  EXPECT_EQ(found(" ").size(), list.size());
}

TEST(Units, AreFoundByTheirIdsWithinACategory) {
  EXPECT_EQ(conversion("5+3", *unitCategory("length")->unit("mi"), *unitCategory("length")->unit("km")),
            "(5+3) mi to km");
  EXPECT_EQ(unitCategory("length")->unit("kg"), nullptr);
  EXPECT_EQ(unitCategory(""), nullptr);
}

TEST(Translation, NamesLanguagesInTheUsersOwn) {
  const auto languages = translationLanguages("de_DE.UTF-8");
  EXPECT_THAT(languages, testing::Contains(TranslationLanguage{"en", "Englisch"}));
  EXPECT_EQ(languages.front().name, "Arabisch");
  EXPECT_EQ(ownLanguage("pt_BR.UTF-8"), "pt");
  EXPECT_EQ(ownLanguage("tlh"), "en");
  EXPECT_EQ(languageName("../x", "en"), "");
}

TEST(Translation, AsksAModelForTheLanguageOnlyWhereItIsUnknown) {
  const TranslationTask known{"Hallo", "de", "en"}, unknown{"Hallo", "", "en"};
  EXPECT_THAT(translationPrompt(unknown).instructions, HasSubstr("first line"));
  EXPECT_THAT(translationPrompt(known).instructions, Not(HasSubstr("first line")));
  EXPECT_EQ(parseModelTranslation("de\nHello\nyou", unknown), (Translation{.text = "Hello\nyou", .source = "de"}));
  // A model that forgets the line, one that thinks aloud, one that keeps the marks, and one that has just begun.
  for (const char* text : {"Hello there", "Hello", "Hello\nyou", "Hi\nyou", "xq\nyou"})
    EXPECT_EQ(parseModelTranslation(text, unknown), (Translation{.text = text}));
  EXPECT_EQ(parseModelTranslation("<think>Well</think>\nde\n\n<text>\nHello\n</text>", unknown),
            (Translation{.text = "Hello", .source = "de"}));
  EXPECT_EQ(parseModelTranslation("<think>We", unknown), Translation());
  EXPECT_EQ(parseModelTranslation("no\nway", known).text, "no\nway");
}

TEST(Translation, SpeaksToAServer) {
  const auto request = parseJSON(translationRequest({"a \"b\"\n", "", "fr"}));
  EXPECT_EQ(stringField(*request, "q"), "a \"b\"\n");
  EXPECT_EQ(stringField(*request, "source"), "auto");
  EXPECT_EQ(parseServerTranslation(R"({"translatedText":"x","detectedLanguage":{"language":"de","confidence":90}})"),
            (Translation{.text = "x", .source = "de"}));
  EXPECT_EQ(parseServerTranslation(R"({"error":"slow down"})").problem, "The server says: slow down");
  for (const char* body : {"", "[]", "<html>", R"({"translatedText":7})"})
    EXPECT_EQ(parseServerTranslation(body).problem, "The server gave no translation.") << body;
  EXPECT_TRUE(isLanguageList(R"([{"code":"en","name":"English"}])"));
  EXPECT_FALSE(isLanguageList("[]"));
}

}  // namespace
}  // namespace ambrel
