#include <QAbstractItemModelTester>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>
#include <cmath>

#include "app/model/AppModel.h"
#include "app/model/AppSettings.h"
#include "app/model/DefaultsWatcher.h"
#include "app/model/LicenseFile.h"
#include "app/model/StartAtLogin.h"
#include "core/base/Files.h"
#include "core/workspace/Autostart.h"
#include "tests/SignedLicence.h"
#include "tests/TemporaryFolder.h"
#include "tests/core/profiles/Tiles.h"

namespace ambrel {
namespace {

const DisplaySnapshot lid{"eDP-1", true}, monitor{"DP-2", false};

// A user's folder, screens and licence, and a model that can be built again.
struct Fixture {
  TemporaryFolder folder;
  std::filesystem::path store = folder / "Ambrel/profiles.json";
  UserDefaults defaults{folder / "defaults.json"};
  LicenseManager license;
  std::vector<DisplaySnapshot> displays{lid};
  std::unique_ptr<AppModel> model;

  AppModel& start() {
    model = std::make_unique<AppModel>(store, defaults, license, [this] { return displays; });
    return *model;
  }
  std::vector<Profile> stored() const { return loadProfiles(store).profiles; }
  std::string activeName() const { return model->activeProfile()->name; }
};

}  // namespace

class ModelTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void anUnreadableFileIsLoggedAndStaysUntilTheNextEdit() {
    Fixture f;
    f.folder.write("Ambrel/profiles.json", "{not json");
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(QStringLiteral("^Ambrel: cannot read profiles, using defaults: .+")));
    f.start();
    QCOMPARE(f.activeName(), std::string("Laptop"));
    QCOMPARE(readFile(f.store).value_or(""), std::string("{not json"));
    f.model->addProfile("Third", std::nullopt);
    QCOMPARE(f.stored().size(), 3u);
    QCOMPARE(readFile(f.store.string() + ".unreadable").value_or(""), std::string("{not json"));
    QSignalSpy told(f.model.get(), &AppModel::problemFound);
    QTRY_COMPARE(told.count(), 2);
    QCOMPARE(told[0][0].toString() + told[1][0].toString(),
             QStringLiteral("The list of profiles cannot be readThe list of profiles has a new file"));
  }

  void theOldWidgetListIsConvertedSavedAndForgotten() {
    Fixture f;
    f.folder.write("Ambrel/profiles.json",
                   R"([{"id":"00000000-0000-4000-8000-000000000001","name":"Old","items":[]}])");
    f.defaults.set("dockWidgets", std::vector<std::string>{"clock", "memory"});
    f.start();
    const std::vector<std::string> expected{"clock", "memory"};
    QCOMPARE(widgetsOf(*f.model->activeProfile()), expected);
    QCOMPARE(widgetsOf(f.stored().front()), expected);
    QCOMPARE(UserDefaults(f.folder / "defaults.json").object("dockWidgets"), nullptr);
    const auto ids = f.stored();
    f.start();
    QVERIFY(f.model->profiles() == ids);
  }

  void theDisplaysChooseUntilAProfileIsPinned() {
    Fixture f;
    f.start();
    QSignalSpy active(f.model.get(), &AppModel::activeProfileChanged);
    QSignalSpy displays(f.model.get(), &AppModel::displaysChanged);
    f.model->refreshDisplays();
    QCOMPARE(displays.count(), 0);
    f.displays = {lid, monitor};
    f.model->refreshDisplays();
    QCOMPARE(f.activeName(), std::string("Desk"));
    QCOMPARE(active.count(), 1);
    f.displays = {lid};
    f.model->refreshDisplays();
    QCOMPARE(f.activeName(), std::string("Laptop"));

    f.model->setPinnedProfileID(f.model->profiles()[1].id);
    QCOMPARE(f.activeName(), std::string("Desk"));
    f.model->setPinnedProfileText(QString());
    QCOMPARE(f.activeName(), std::string("Laptop"));
    f.model->setPinnedProfileID(UUID::random());
    QCOMPARE(f.activeName(), std::string("Laptop"));
    // Held in memory alone.
    f.model->setPinnedProfileID(f.model->profiles()[1].id);
    f.start();
    QCOMPARE(f.activeName(), std::string("Laptop"));
  }

  void aMomentWithoutScreensKeepsTheProfile() {
    Fixture f;
    f.displays = {monitor};
    f.start();
    QSignalSpy active(f.model.get(), &AppModel::activeProfileChanged);
    f.displays = {};
    f.model->refreshDisplays();
    QCOMPARE(f.activeName(), std::string("Desk"));
    QCOMPARE(f.model->displays().size(), 1u);
    QCOMPARE(active.count(), 0);
  }

  void withoutTheFeatureTheFirstProfileIsTheAnswer() {
    Fixture f;
    f.displays = {monitor};
    f.start();
    QSignalSpy active(f.model.get(), &AppModel::activeProfileChanged);
    f.license.setCheck([](ProFeature feature) { return feature != ProFeature::profileSwitching; });
    QCOMPARE(f.activeName(), std::string("Laptop"));
    QCOMPARE(active.count(), 1);
    f.model->setPinnedProfileID(f.model->profiles()[1].id);
    QCOMPARE(f.activeName(), std::string("Laptop"));
    QCOMPARE(f.model->profiles().size(), 2u);
    f.license.setCheck({});
    QCOMPARE(f.activeName(), std::string("Desk"));
  }

  void editsAreSavedAtOnce() {
    Fixture f;
    f.start();
    QVERIFY2(!std::filesystem::exists(f.store), "a first run writes nothing");
    QSignalSpy profiles(f.model.get(), &AppModel::profilesChanged);
    f.model->setProfiles(f.model->profiles());
    QVERIFY2(profiles.empty() && !std::filesystem::exists(f.store), "nothing has changed");
    const UUID laptop = f.model->profiles()[0].id;
    f.model->addWidget("memory", laptop, f.model->profiles()[0].items[1].id);
    QCOMPARE(widgetsOf(f.stored()[0])[1], std::string("memory"));
    const auto items = f.model->profiles()[0].items;
    f.model->moveItem(items[0].id, items[5].id, laptop);
    QCOMPARE(widgetsOf(f.stored()[0])[5], std::string("clipboard"));
    f.model->removeItem(items[1].id, laptop);
    f.model->removeWidget("cpu", laptop);
    QCOMPARE(widgetsOf(f.stored()[0]), (std::vector<std::string>{"weather", "disk", "clock", "clipboard"}));
    const QString added = f.model->addProfile(QStringLiteral("Away"), QStringLiteral("external"));
    QCOMPARE(f.stored()[2].trigger, std::optional(DisplayContext::external));
    f.model->renameProfile(added, QStringLiteral("Train"));
    QCOMPARE(f.stored()[2].name, std::string("Train"));
    f.model->deleteProfile(added);
    QCOMPARE(f.stored().size(), 2u);
    QVERIFY(f.stored() == f.model->profiles());
  }

  void anUnknownIdDoesNothingAtAll() {
    Fixture f;
    f.start();
    QSignalSpy profiles(f.model.get(), &AppModel::profilesChanged);
    for (const QString& id : {QString::fromStdString(UUID::random().text()), QString(), QStringLiteral("no id")}) {
      f.model->addWidget(QStringLiteral("uuid"), id);
      f.model->deleteProfile(id);
    }
    QCOMPARE(profiles.count(), 0);
    QVERIFY(!std::filesystem::exists(f.store));
  }

  void deletingThePinnedProfileClearsThePin() {
    Fixture f;
    f.start();
    const UUID desk = f.model->profiles()[1].id, laptop = f.model->profiles()[0].id;
    f.model->setPinnedProfileID(desk);
    f.model->deleteProfile(desk);
    QCOMPARE(f.model->pinnedProfileID().has_value(), false);
    QCOMPARE(f.activeName(), std::string("Laptop"));
    // The last one stays, and so does its pin.
    f.model->setPinnedProfileID(laptop);
    f.model->deleteProfile(laptop);
    QCOMPARE(f.model->profiles().size(), 1u);
    QVERIFY(f.model->pinnedProfileID() == laptop);
  }

  void aSaveThatFailsIsLoggedAndTheChangeStands() {
    Fixture f;
    saveProfiles(f.store, Profile::defaults());
    f.start();
    f.model->followFile();
    FollowedFile followed(f.store);
    followed.start();
    QSignalSpy told(f.model.get(), &AppModel::problemFound), heard(&followed, &FollowedFile::changed);
    // A folder cannot be replaced.
    std::filesystem::rename(f.store, f.folder / "old");
    makeFolders(f.store);
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(QStringLiteral("^Ambrel: cannot save profiles: .*Ambrel.*: .+")));
    f.model->addProfile("Third", std::nullopt);
    QTRY_COMPARE(told.count(), 1);
    QCOMPARE(told[0][0].toString(), QStringLiteral("The list of profiles is not saved"));
    // What was in the file before is no edit of somebody else's.
    std::filesystem::remove(f.store);
    std::filesystem::rename(f.folder / "old", f.store);
    QVERIFY(heard.wait());
    QCoreApplication::processEvents();
    QCOMPARE(f.model->profiles().size(), 3u);
    f.model.reset();
    QCOMPARE(f.stored().size(), 3u);
  }

  void editsOfAnotherProfileDoNotTouchTheBar() {
    Fixture f;
    f.start();
    QSignalSpy active(f.model.get(), &AppModel::activeProfileChanged);
    f.model->addWidget("memory", f.model->profiles()[1].id, std::nullopt);
    QCOMPARE(active.count(), 0);
    QVERIFY(!f.model->isOnBar(QStringLiteral("memory")));
    f.model->addWidget("memory", f.model->profiles()[0].id, std::nullopt);
    QCOMPARE(active.count(), 1);
    QVERIFY(f.model->isOnBar(QStringLiteral("memory")));
  }

  void theListShowsEachProfileOnce() {
    Fixture f;
    f.start();
    RowList& list = *f.model->profileList();
    const QAbstractItemModelTester tester(&list, QAbstractItemModelTester::FailureReportingMode::QtTest);
    QSignalSpy reset(&list, &QAbstractItemModel::modelReset);
    const auto at = [&](int row, const char* role) { return list.data(list.index(row), list.roleNames().key(role)); };
    QCOMPARE(list.rowCount(), 2);
    QCOMPARE(at(0, "name").toString(), QStringLiteral("Laptop"));
    QCOMPARE(at(0, "isActive").toBool(), true);
    QCOMPARE(at(1, "trigger").toString(), QStringLiteral("external"));
    QCOMPARE(at(1, "tileCount").toInt(), 7);
    const QString id = f.model->addProfile(QStringLiteral("Away"), QString());
    f.model->setPinnedProfileText(id);
    QCOMPARE(list.rowCount(), 3);
    QCOMPARE(at(0, "isActive").toBool(), false);
    QCOMPARE(at(2, "isActive").toBool(), true);
    QCOMPARE(at(2, "isPinned").toBool(), true);
    QCOMPARE(at(2, "profile").toString(), id);
    f.model->deleteProfile(id);
    QCOMPARE(list.rowCount(), 2);
    QCOMPARE(reset.count(), 0);
  }

  void editsOfTilesAreTakenBackInTurnAndThoseOfOthersAreNot() {
    Fixture f;
    f.start();
    QSignalSpy removed(f.model.get(), &AppModel::itemRemoved);
    const auto slot = [&](std::size_t at) { return f.model->profiles()[0].items[at].id; };
    const UUID id = f.model->profiles()[0].id;
    const auto first = widgetsOf(f.model->profiles()[0]);
    QVERIFY(!f.model->canUndo());
    f.model->stepItem(QString::fromStdString(slot(0).text()), 1);
    f.model->stepItem(QString::fromStdString(slot(0).text()), -1);
    f.model->removeItem(f.model->profiles()[0].items[4].id, f.model->profiles()[0].id);
    QCOMPARE(removed.count(), 1);
    const auto edit = removed[0][1].value<BarEdit>();
    f.model->placeItem(DockItem::holding("battery"), id, slot(1));
    QCOMPARE(widgetsOf(f.stored()[0]), (std::vector<std::string>{"weather", "battery", "clipboard", "disk", "cpu"}));
    // Out of turn, by the button of its message, and then the others.
    f.model->undo(edit);
    QCOMPARE(widgetsOf(f.stored()[0]),
             (std::vector<std::string>{"weather", "battery", "clipboard", "disk", "cpu", "clock"}));
    f.model->undo();
    f.model->undo();
    QCOMPARE(widgetsOf(f.stored()[0]), first);
    QVERIFY(!f.model->canUndo());
    f.model->undo();
    QCOMPARE(widgetsOf(f.stored()[0]), first);
  }

  void theLicenceTellsWhenItBecomesPro() {
    LicenseManager license;
    QVERIFY(license.isPro());
    int became = 0;
    license.onBecamePro = [&] { ++became; };
    license.setCheck([](ProFeature) { return false; });
    QVERIFY(!license.allows(ProFeature::agentTracking));
    QVERIFY(!license.allows(QStringLiteral("agentTracking")));
    QVERIFY(license.allows(QStringLiteral("no feature")));
    QCOMPARE(became, 0);
    license.setCheck({});
    license.setCheck({});
    QCOMPARE(became, 1);
  }

  // A file that comes, ends, or is replaced by one that is worth nothing.
  void theGateFollowsTheFile() {
    TemporaryFolder folder;
    LicenseManager gate;
    int opened = 0;
    gate.onBecamePro = [&] { ++opened; };
    PresentCalendar calendar{Calendar("UTC", "en_US")};
    Instant now = parseISO8601("2026-11-22T12:00:00Z").value();
    LicenseFile file(
        {.file = folder / "data/licence.json", .key = licenceTestKey, .calendar = calendar, .now = [&] { return now; }},
        gate);
    QVERIFY(!gate.isPro());
    QVERIFY(!file.due());
    JSON changed = signedLicence();
    changed["signature"] = "AAAA";
    file.install(folder.write("changed.json", changed.dump()));
    QCOMPARE(file.problem(), "The licence was changed after it was signed");
    QVERIFY(!gate.isPro() && !std::filesystem::exists(folder / "data"));

    file.install(folder.write("bought.json", signedLicence().dump()));
    QCOMPARE(file.problem(), "");
    QCOMPARE(file.text(), "Licensed to Ada until Jan 1, 2030");
    QVERIFY(gate.isPro());
    QCOMPARE(opened, 1);

    now = file.due().value();
    file.tick(now);
    QVERIFY(!gate.isPro());
    QCOMPARE(file.text(), "The licence of Ada ended on Jan 1, 2030");

    // A clock that ran ahead, put right.
    now = parseISO8601("2026-11-22T12:00:00Z").value();
    file.clockMoved(Seconds(-1), now);
    QVERIFY(gate.isPro());

    // Found at the next start.
    now = parseISO8601("2029-01-01T00:00:00Z").value();
    LicenseManager later;
    const LicenseFile again(
        {.file = folder / "data/licence.json", .key = licenceTestKey, .calendar = calendar, .now = [&] { return now; }},
        later);
    QVERIFY(later.isPro());
  }

  void aBuildWithoutAKeyAllowsEverything() {
    TemporaryFolder folder;
    LicenseManager gate;
    const PresentCalendar calendar{Calendar("UTC", "en_US")};
    const LicenseFile file(
        {.file = folder.write("licence.json", "{}"), .key = "", .calendar = calendar, .now = [] { return Instant(); }},
        gate);
    QVERIFY(gate.isPro() && file.isValid());
  }

  void whatOthersWriteIsTakenOver() {
    Fixture fixture;
    AppModel& model = fixture.start();
    model.addWidget("cpu", model.profiles().front().id, std::nullopt);
    model.followFile();
    std::vector<Profile> profiles = fixture.stored();
    profiles.front().items = {DockItem::holding("clock")};
    QSignalSpy changes(&model, &AppModel::activeProfileChanged);
    saveProfiles(fixture.store, profiles);
    QVERIFY(changes.wait(15000));
    QCOMPARE(widgetsOf(*model.activeProfile()), std::vector<std::string>{"clock"});
    // An edit to the file that cannot be read is that of somebody who is not done yet.
    fixture.folder.write("Ambrel/profiles.json", "[{");
    model.addWidget("cpu", profiles.front().id, std::nullopt);
    QCOMPARE(widgetsOf(fixture.stored().front()), (std::vector<std::string>{"clock", "cpu"}));
  }

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

  // Replaced, as editors do it, and written in place.
  void whatIsEditedByHandTakesEffect() {
    for (const bool isReplaced : {true, false}) {
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
  }

  void startAtLoginIsWhatTheUsersEntrySaysElseTheInstalledOne() {
    TemporaryFolder folder;
    const auto own = autostartFile(folder.path()), installed = folder / "installed.desktop";
    const auto model = [&] { return StartAtLogin(folder.path(), installed, "/usr/bin/tilebay").isOn(); };
    QVERIFY(!model());
    writeAtomically(installed, autostartEntry("/usr/bin/tilebay"));
    QVERIFY(model());
    makeFolders(own.parent_path());
    writeAtomically(own, noAutostartEntry());
    QVERIFY(!model());
  }

  void startAtLoginLeavesNoEntryThatIsNotNeeded() {
    TemporaryFolder folder;
    const auto own = autostartFile(folder.path()), installed = folder / "installed.desktop";
    for (const bool isInstalled : {false, true}) {
      if (isInstalled) writeAtomically(installed, autostartEntry("/usr/bin/tilebay"));
      StartAtLogin model(folder.path(), installed, "/usr/bin/tilebay");
      QCOMPARE(model.isOn(), isInstalled);
      model.setOn(!isInstalled);
      QCOMPARE(model.isOn(), !isInstalled);
      QVERIFY(std::filesystem::exists(own));
      model.setOn(isInstalled);
      QCOMPARE(model.isOn(), isInstalled);
      QVERIFY(!std::filesystem::exists(own));
    }
  }
};

}  // namespace ambrel

QTEST_GUILESS_MAIN(ambrel::ModelTests)
#include "ModelTests.moc"
