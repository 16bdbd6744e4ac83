#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>
#include <cmath>

#include "app/model/AppSettings.h"
#include "app/model/DefaultsWatcher.h"
#include "core/base/Files.h"
#include "tests/TemporaryFolder.h"

namespace ambrel {

class AppSettingsTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void observersSeeTheNewValueInTheDefaults() {
    TemporaryFolder folder;
    UserDefaults defaults(folder / "defaults.json");
    AppSettings settings(defaults);
    QSignalSpy chosen(&settings, &AppSettings::chosen);
    settings.set(setting::clipboardLimit, 300);
    QVERIFY2(chosen.empty() && !std::filesystem::exists(folder / "defaults.json"), "nothing has changed");
    std::optional<std::int64_t> seen, stored;
    connect(&settings, &AppSettings::clipboardLimitChanged, this, [&] {
      seen = settings.clipboardLimit();
      stored = UserDefaults(folder / "defaults.json").integer("clipboardLimit");
    });
    settings.set(setting::clipboardLimit, 42);
    QCOMPARE(seen, std::optional<std::int64_t>(42));
    QCOMPARE(stored, seen);
    // Those of one model alone are told by their key.
    settings.change(setting::waterGoal, {std::int64_t{99}});
    QCOMPARE(chosen.count(), 2);
    QCOMPARE(chosen.last().first().value<std::string>(), std::string("waterGoal"));
    QVERIFY(UserDefaults(folder / "defaults.json").integer("waterGoal") == 30);
  }

  void whatASettingDoesNotTakeChangesNothing() {
    TemporaryFolder folder;
    UserDefaults defaults(folder.write("defaults.json", R"({"dockEdge":"top","buddyLevel":"loud"})"));
    AppSettings settings(defaults);
    QCOMPARE(settings.property("dockEdge"), QStringLiteral("bottom"));
    settings.setProperty("dockEdge", "right");
    settings.setProperty("dockEdge", "top");
    settings.setProperty("buddyLevel", "");
    settings.setProperty("buddyCategories", QStringList{QStringLiteral("gossip"), QStringLiteral("health")});
    settings.setProperty("quietStartHour", 99);
    settings.setProperty("clipboardLimit", std::nan(""));
    QCOMPARE(settings.dockEdge(), DockEdge::right);
    QCOMPARE(settings.buddyLevel(), BuddyLevel::all);
    QCOMPARE(settings.property("buddyCategories"), QStringList(QStringLiteral("health")));
    QCOMPARE(settings.quietStartHour(), 23);
    QCOMPARE(settings.clipboardLimit(), 1);
  }

  void aFailedWriteIsLoggedAndTheValueStands() {
    TemporaryFolder folder;
    folder.write("file", "in the way");
    UserDefaults defaults(folder / "file/defaults.json");
    AppSettings settings(defaults);
    QSignalSpy spy(&settings, &AppSettings::dockEdgeChanged);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^Ambrel: cannot save settings: .*file")));
    settings.set(setting::dockEdge, DockEdge::left);
    QCOMPARE(settings.dockEdge(), DockEdge::left);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(readFile(folder / "file").value_or(""), std::string("in the way"));
  }

  void whatIsEditedByHandTakesEffect_data() {
    QTest::addColumn<bool>("isReplaced");
    QTest::newRow("a file that is replaced") << true;
    QTest::newRow("a file that is written in place") << false;
  }

  void whatIsEditedByHandTakesEffect() {
    QFETCH(bool, isReplaced);
    TemporaryFolder folder;
    UserDefaults defaults(folder / "defaults.json");
    AppSettings settings(defaults);
    DefaultsWatcher watcher(defaults);
    connect(&watcher, &DefaultsWatcher::changed, &settings, &AppSettings::reload);
    watcher.start();
    settings.set(setting::barAlwaysVisible, true);
    QSignalSpy edge(&settings, &AppSettings::dockEdgeChanged),
        visible(&settings, &AppSettings::barAlwaysVisibleChanged);
    const auto edit = [&](std::string_view text) {
      if (isReplaced)
        writeAtomically(folder / "defaults.json", text);
      else
        folder.write("defaults.json", text);
    };
    edit(R"({"barAlwaysVisible": true, "dockEdge": "left"})");
    QVERIFY(QTest::qWaitFor([&] { return settings.dockEdge() == DockEdge::left; }, 15000));
    QCOMPARE(edge.count(), 1);
    QCOMPARE(visible.count(), 0);
    // In the moment between the edit and the look at it, a choice is made here.
    edit(R"({"barAlwaysVisible": true, "dockEdge": "right"})");
    settings.set(setting::quietHoursOn, false);
    QVERIFY(QTest::qWaitFor([&] { return settings.dockEdge() == DockEdge::right; }, 15000));
    QVERIFY(!settings.quietHoursOn());
    const UserDefaults stored(folder / "defaults.json");
    QVERIFY(stored.string("dockEdge") == "right" && stored.boolean("quietHoursOn") == false);
  }
};

}  // namespace ambrel

QTEST_GUILESS_MAIN(ambrel::AppSettingsTests)
#include "AppSettingsTests.moc"
