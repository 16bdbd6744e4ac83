#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/base/JSON.h"
#include "core/settings/Choices.h"
#include "core/settings/PersonalData.h"
#include "tests/TemporaryFolder.h"

namespace ambrel {
namespace {

using testing::ElementsAre;

TEST(Choices, ComeBackAsTheyWere) {
  const TemporaryFolder folder;
  UserDefaults defaults(folder.write("defaults.json", R"({"dockEdge": "left", "clipboardLimit": 50,
      "ignoredBundleIDs": ["a,b", ""], "shelfKeys": "", "welcomeDone": true})"));
  const auto profiles = Profile::defaults();
  const ImportedChoices back = importedChoices(exportedChoices(defaults, profiles));
  EXPECT_THAT(back.skipped, ElementsAre());
  EXPECT_EQ(back.profiles, profiles);
  for (const SettingRow* row : allSettings())
    if (row->page == SettingPage::none)
      EXPECT_FALSE(back.values.contains(row->key)) << row->key;
    else
      EXPECT_EQ(back.values.at(row->key), presentValue(defaults, *row)) << row->key;
}

TEST(Choices, ABadRowIsToldAndTheOthersCount) {
  const auto choices = importedChoices(R"({"tilebay": 1, "profiles": [{"name": 3}],
      "settings": {"barAlwaysVisible": true, "clipboardLimit": 0, "dockEdge": "top", "modelServerAllowedURL": "http://a.b",
      "shelfKeys": "V", "welcomeDone": true}})");
  EXPECT_EQ(choices.values, (DefaultsDictionary{{"barAlwaysVisible", {true}}}));
  EXPECT_EQ(choices.profiles, std::nullopt);
  EXPECT_THAT(choices.skipped,
              ElementsAre("clipboardLimit takes a whole number from 1 to 100000",
                          "dockEdge takes one of bottom, left, right", "modelServerAllowedURL is not taken from a file",
                          "shelfKeys takes a letter or digit with Super, Alt or Control, like Super+Alt+V, or nothing",
                          "welcomeDone is no setting of this version", "the profiles cannot be read"));
  for (const char* text : {"", "[]", "{}", R"({"settings": {}})"}) EXPECT_THROW(importedChoices(text), DecodingError);
}

TEST(Keys, AreReadInAnyOrderAndWrittenInOne) {
  const std::pair<const char*, const char*> cases[] = {{"Alt+Super+V", "Super+Alt+V"},
                                                       {" d + meta + control ", "Ctrl+Super+D"},
                                                       {"shift+Alt+7", "Alt+Shift+7"},
                                                       {"", ""}};
  for (const auto& [written, read] : cases) EXPECT_EQ(keysText(parseKeys(written).value()), read);
  // What could be typed, or is no key.
  for (const char* text : {"V", "Shift+V", "Super", "Super+", "Super+VW", "Super+V+W", "Super+é", "+"})
    EXPECT_EQ(parseKeys(text), std::nullopt) << text;
}

TEST(PersonalData, AllButTheLicenceIsDeletedAndNoLinkIsFollowed) {
  const TemporaryFolder folder;
  const PersonalPlaces places{folder / "data", folder / "config/defaults.json", folder / "cache"};
  folder.write("mine/keep.txt", "x");
  folder.write("data/todos.json.unreadable", "1234");
  folder.write("data/todos.jsonx", "12345678");
  folder.write("data/Clipboard/library.json", "12");
  folder.write("data/licence.json", "{}");
  folder.write("config/defaults.json", "{}");
  folder.write("config/other.json", "{}");
  folder.write("cache/calendars/family.ics", "123");
  std::filesystem::create_directory_symlink(folder / "mine", folder / "data/Clipboard/link");
  EXPECT_THAT(filesOf("lists", places), ElementsAre(folder / "data/todos.json.unreadable"));
  EXPECT_EQ(sizeOf(filesOf("lists", places)), 4u);
  EXPECT_EQ(sizeOf(filesOf("calendars", places)), 3u);
  EXPECT_EQ(sizeOf({folder / "data/Clipboard"}), 2u) << "without what a link leads to";

  EXPECT_THAT(deleteFiles(filesOf("", places)), ElementsAre());
  EXPECT_TRUE(std::filesystem::exists(folder / "mine/keep.txt"));
  EXPECT_TRUE(std::filesystem::exists(folder / "data/licence.json"));
  EXPECT_TRUE(std::filesystem::exists(folder / "config/other.json"));
  EXPECT_FALSE(std::filesystem::exists(folder / "data/Clipboard"));
  EXPECT_FALSE(std::filesystem::exists(folder / "cache/calendars"));
  EXPECT_FALSE(std::filesystem::exists(folder / "config/defaults.json"));
}

}  // namespace
}  // namespace ambrel
