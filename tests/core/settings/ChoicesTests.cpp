#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/base/JSON.h"
#include "core/settings/Choices.h"
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
  EXPECT_EQ(back.values.size(), allSettings().size());
  for (const SettingRow* row : allSettings())
    EXPECT_EQ(back.values.at(row->key), presentValue(defaults, *row)) << row->key;
}

TEST(Choices, ABadRowIsToldAndTheOthersCount) {
  const auto choices = importedChoices(R"({"tilebay": 1, "profiles": [{"name": 3}],
      "settings": {"barAlwaysVisible": true, "clipboardLimit": 0, "dockEdge": "top", "shelfKeys": "V", "welcomeDone": true}})");
  EXPECT_EQ(choices.values, (DefaultsDictionary{{"barAlwaysVisible", {true}}}));
  EXPECT_EQ(choices.profiles, std::nullopt);
  EXPECT_THAT(
      choices.skipped,
      ElementsAre("clipboardLimit takes a whole number from 1 to 100000", "dockEdge takes one of bottom, left, right",
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

}  // namespace
}  // namespace ambrel
