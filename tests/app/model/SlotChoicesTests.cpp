#include <QTest>

#include "app/base/StoredValue.h"
#include "app/model/SlotChoices.h"
#include "tests/app/model/ProfilesRoom.h"

namespace ambrel {
namespace {

constexpr const char* key = "gitStatusFolder";

DefaultsValue text(const char* value) { return {std::string(value)}; }

}  // namespace

class SlotChoicesTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void eachProfileShowsWhatWasChosenInIt() {
    ProfilesRoom room;
    UserDefaults& defaults = room.defaults;
    AppModel& model = room.model;
    // From an older version, which had one for all.
    defaults.set(key, text("/old"));
    std::vector<Profile> profiles = Profile::defaults();
    for (Profile& profile : profiles) profile.items = holding({"gitStatus"});
    model.setProfiles(profiles);
    const UUID one = profiles[0].id, other = profiles[1].id;
    SlotChoices choices(model, defaults);
    std::vector<std::set<std::string>> told;
    connect(&choices, &SlotChoices::changed, this, [&](const std::set<std::string>& keys) { told.push_back(keys); });
    const auto shown = [&](const UUID& profile) {
      model.setPinnedProfileID(profile);
      return defaults.string(key).value_or("none");
    };
    QCOMPARE(shown(one), "/old");
    defaults.set(key, text("/sources/one"));
    QVERIFY2(told.empty(), "who has chosen it knows");
    QCOMPARE(shown(other), "/old");
    defaults.set(key, text("/sources/other"));
    QCOMPARE(shown(one), "/sources/one");
    QCOMPARE(told, std::vector<std::set<std::string>>({{key}, {key}}));
    const UUID later = model.addProfile("Later", std::nullopt);
    model.addWidget("gitStatus", later, std::nullopt);
    QCOMPARE(shown(later), "/sources/other");

    // A copy of the profile goes its own way.
    model.duplicateProfile(QString::fromStdString(one.text()));
    const UUID copy = model.profiles()[1].id;
    QCOMPARE(shown(copy), "/sources/one");
    defaults.remove(key);
    QCOMPARE(shown(copy), "none");
    QCOMPARE(shown(one), "/sources/one");
    QCOMPARE(shown(later), "/sources/other");
    model.setPinnedProfileID(one);

    // What is not for a tile of the profile, and what is for none.
    defaults.set("unitTo", text("cm"));
    defaults.set("theme", text("dark"));
    QCOMPARE(defaults.string("unitTo"), "cm");
    QCOMPARE(loadProfiles(room.folder / "profiles.json").profiles[0].items[0].settings.size(), 1u);

    // Edited by hand, and gone with its tile.
    told.clear();
    profiles = model.profiles();
    profiles[0].items[0].settings[key] = text("/by/hand");
    model.setProfiles(profiles);
    QCOMPARE(defaults.string(key), "/by/hand");
    model.removeWidget("gitStatus", one);
    QVERIFY(!defaults.object(key));
    QCOMPARE(told.size(), 2u);
    model.undo();
    QCOMPARE(defaults.string(key), "/by/hand");
  }

  void aChoiceThatComesLaterIsForTheProfileThatAsked() {
    ProfilesRoom room;
    AppModel& model = room.model;
    std::vector<Profile> profiles = Profile::defaults();
    for (Profile& profile : profiles) profile.items = holding({"gitStatus"});
    model.setProfiles(profiles);
    const UUID one = profiles[0].id, other = profiles[1].id;
    SlotChoices choices(model, room.defaults);
    int told = 0;
    connect(&choices, &SlotChoices::changed, this, [&] { ++told; });
    room.defaults.set(key, text("/before"));
    room.defaults.set("theme", text("dark"));
    // What the dialog of the first profile does after this has come about, and what each profile shows then.
    const struct {
      std::function<void()> meanwhile;
      QStringList shown;
    } rows[] = {{[] {}, {"/late", "/before"}},
                {[&] { model.setPinnedProfileID(other); }, {"/late", "/before"}},
                {[&] { model.removeWidget("gitStatus", one); }, {"/before"}},
                {[&] { model.deleteProfile(one); }, {"/before"}}};
    for (const auto& row : rows) {
      model.setProfiles(profiles);
      model.setPinnedProfileID(one);
      room.defaults.set(key, text("/before"));
      model.setPinnedProfileID(other);
      room.defaults.set(key, text("/before"));
      model.setPinnedProfileID(one);
      const auto answer = storeLater(room.defaults, key);
      row.meanwhile();
      told = 0;
      answer(text("/late"));
      QCOMPARE(told, 0);
      QStringList shown;
      for (const Profile& profile : loadProfiles(room.folder / "profiles.json").profiles)
        if (const auto* value = slotSetting(profile, key)) shown << std::get<std::string>((*value)->value).c_str();
      QCOMPARE(shown, row.shown);
    }
    storeLater(room.defaults, "theme")(text("light"));
    QCOMPARE(room.defaults.string("theme"), "light");
  }

  void aTileThatIsAddedLaterHasTheTitleWithItsDate() {
    ProfilesRoom room;
    UserDefaults& defaults = room.defaults;
    AppModel& model = room.model;
    SlotChoices choices(model, defaults);
    const auto start = [&](const char* name) {
      const UUID profile = model.addProfile(name, std::nullopt);
      model.addWidget("countdown", profile, std::nullopt);
      model.setPinnedProfileID(profile);
      return profile;
    };
    const UUID trip = start("Trip");
    const UUID launch = start("Launch");
    defaults.set("countdownTitle", text("Launch"));
    defaults.set("countdownDate", DefaultsValue{2.0});
    model.setPinnedProfileID(trip);
    QVERIFY2(!defaults.object("countdownTitle") && !defaults.object("countdownDate"), "the usual day, as before");
    defaults.set("countdownDate", DefaultsValue{1.0});
    start("Later");
    QCOMPARE(defaults.number("countdownDate"), 1.0);
    QVERIFY(!defaults.object("countdownTitle"));
    model.setPinnedProfileID(launch);
    QCOMPARE(defaults.string("countdownTitle"), "Launch");
    QCOMPARE(defaults.number("countdownDate"), 2.0);

    // As by a panel that closes because of the change: it is the title of the profile before.
    const auto typed = [&] {
      defaults.set({{"countdownTitle", text("Typed")}, {"countdownDate", DefaultsValue{3.0}}});
    };
    const auto typing = connect(&model, &AppModel::activeProfileAboutToChange, this, typed);
    model.setPinnedProfileID(trip);
    disconnect(typing);
    QVERIFY(!defaults.object("countdownTitle"));
    QCOMPARE(defaults.number("countdownDate"), 1.0);
    model.setPinnedProfileID(launch);
    QCOMPARE(defaults.string("countdownTitle"), "Typed");
    QCOMPARE(defaults.number("countdownDate"), 3.0);
  }
};

}  // namespace ambrel

QTEST_GUILESS_MAIN(ambrel::SlotChoicesTests)
#include "SlotChoicesTests.moc"
