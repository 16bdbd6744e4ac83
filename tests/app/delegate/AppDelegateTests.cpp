#include <QApplication>
#include <QTest>
#include <csignal>

#include "app/Environment.h"
#include "app/QuitSignals.h"
#include "app/kit/Theme.h"
#include "core/base/Files.h"
#include "core/workspace/Wish.h"
#include "tests/SignedLicence.h"
#include "tests/app/delegate/Program.h"

namespace ambrel {

class AppDelegateTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void desktopsMadeWithGTKAreKnown() {
    const struct {
      const char *variable, *value;
      bool takesGTK;
    } cases[] = {{"XDG_CURRENT_DESKTOP", "ubuntu:GNOME", true},
                 {"XDG_CURRENT_DESKTOP", "X-Cinnamon", true},
                 {"DESKTOP_SESSION", "xfce", true},
                 {"QT_QPA_PLATFORMTHEME", "gtk3", true},
                 {"XDG_CURRENT_DESKTOP", "KDE", false},
                 {"QT_QPA_PLATFORMTHEME", "qt6ct", false},
                 {"HOME", "/home/gnome", false}};
    for (const auto& each : cases) {
      const Environment environment = environmentOf(
          [&](const char* name) { return std::string_view(name) == each.variable ? each.value : nullptr; });
      QVERIFY2(environment.takesGTKTheme == each.takesGTK, each.value);
    }
  }

  void itComesUpWithTheBar() {
    Program program;
    program.delegate->launch();
    QVERIFY(program.delegate->bar().dock().presentation().isShown());
    QVERIFY(!program.slotsOfBar().empty());
    QVERIFY(!program.delegate->bar().welcomePanel().isShown());
    QTest::qWait(0);
  }

  void theFirstRunWelcomes() {
    Program program(true);
    program.delegate->launch();
    DockPopoverController* guide = &program.delegate->bar().welcomePanel();
    const auto isDone = [&] {
      return UserDefaults(program.folder / "defaults.json").boolean("welcomeDone").has_value();
    };
    QTRY_VERIFY(guide->isShown());
    // A program that comes to the front does not end it.
    QTRY_VERIFY(guide->window()->isActive());
    QWindow other;
    other.show();
    other.requestActivate();
    QTRY_VERIFY(!guide->window()->isActive());
    QVERIFY(guide->isShown());
    QVERIFY(!isDone());

    guide->window()->requestActivate();
    QTRY_VERIFY(guide->window()->isActive());
    constexpr int pages = 5;
    for (int page = 1; page < pages; ++page) QTest::keyClick(guide->window(), Qt::Key_Return);
    QVERIFY(guide->isShown() && !isDone());
    QTest::keyClick(guide->window(), Qt::Key_Return);
    QVERIFY(!guide->isShown());
    QVERIFY(isDone());
  }

  void wishesOpenAndClosePanelsOneAtATime() {
    Program program;
    program.delegate->launch();
    const auto isAgentsShown = [&] { return program.delegate->bar().agentsPanel().isShown(); };
    program.delegate->carryOut(wish::ToggleAgents{});
    QVERIFY(isAgentsShown());
    program.delegate->carryOut(wish::ToggleAgents{});
    QVERIFY(!isAgentsShown());
    program.delegate->carryOut(wish::ToggleAgents{});
    // The settings are never closed by their wish.
    for (int i = 0; i < 2; ++i) program.delegate->carryOut(wish::Settings{});
    QVERIFY(!isAgentsShown() && program.delegate->bar().settingsPanel().isShown());
  }

  void diskDoctorOpensFromItsTileAndByWish() {
    Program program;
    program.putOnBar({"disk"});
    program.delegate->launch();
    QTRY_VERIFY(program.slotOf("disk"));
    const QQuickItem* slot = program.slotOf("disk");
    QTest::mouseClick(slot->window(), Qt::LeftButton, {},
                      slot->mapToScene({slot->width() / 2, slot->height() / 2}).toPoint());
    QVERIFY(program.delegate->areas().disk.window().isShown());
    program.delegate->areas().disk.window().close();
    program.delegate->carryOut(wish::OpenDiskDoctor{});
    QVERIFY(program.delegate->areas().disk.window().isShown());
    // It is a window and no panel: panels come and go beside it.
    program.delegate->carryOut(wish::Settings{});
    QVERIFY(program.delegate->bar().settingsPanel().isShown());
    QVERIFY(program.delegate->areas().disk.window().isShown());
  }

  void theKeysAreTaken() {
    const KeyCombination keys{.key = 'd', .command = true, .option = true, .control = true};
    // One that another program has is no fault.
    for (const bool isTaken : {false, true}) {
      Program program;
      if (isTaken) program.desktop.hotKeys.takenByOthers = {keys};
      program.delegate->launch();
      QCOMPARE(program.desktop.hotKeys.press(keys), !isTaken);
      QVERIFY(program.delegate->bar().dock().presentation().isShown());
      QCOMPARE(program.warnings.take().size(), isTaken ? 1 : 0);
    }
  }

  void aClickOnANotificationLeadsToItsSession() {
    Program program;
    program.delegate->launch();
    // Of a session that is gone, or of nobody: nothing comes forward, and nothing fails.
    program.desktop.notifications.click("agent-of-yesterday");
    program.desktop.notifications.press("agent-of-yesterday", "snooze");
    QVERIFY(program.desktop.workspace.activated.empty());
  }

  void withoutALicenceAPanelSaysWhatItGives() {
    Program program;
    program.delegate->launch();
    program.delegate->license().setCheck([](ProFeature feature) { return feature != ProFeature::agentTracking; });
    program.delegate->carryOut(wish::ToggleAgents{});
    QVERIFY(!program.delegate->bar().agentsPanel().isShown());
    QVERIFY(program.delegate->bar().isAnyPanelOpen());
  }

  void aLicenceThatComesOpensTheTilesAndStartsWhatIsBehindThemOnce() {
    Program program;
    program.licenceKey = licenceTestKey;
    program.restart();
    program.putOnBar({"agents", "clock"});
    program.delegate->launch();
    QTRY_VERIFY(program.slotOf("agents") && program.slotOf("clock"));
    const auto isLocked = [&](const char* widget) {
      const QQuickItem* slot = program.slotOf(widget);
      return slot->property("isLocked").toBool() && !slot->property("tile").value<QObject*>();
    };
    QVERIFY(isLocked("agents") && !isLocked("clock"));
    QCOMPARE(program.desktop.notifications.requests, 0);
    BuddyNoticeCenter& notices = program.delegate->areas().notices();
    const BuddyNotice news("x", BuddyRule::agentNeedsInput, "Codex needs you", "", {});
    notices.post(news);
    QVERIFY(!notices.hasBubble());

    const auto file = program.folder.write("data/licence.json", signedLicence().dump());
    QTRY_VERIFY(!isLocked("agents"));
    QCOMPARE(program.desktop.notifications.requests, 1);
    notices.post(news);
    QVERIFY(notices.hasBubble());

    std::filesystem::remove(file);
    QTRY_VERIFY(isLocked("agents"));
    QVERIFY2(!notices.hasBubble(), "what he was saying");
    program.folder.write("data/licence.json", signedLicence().dump());
    QTRY_VERIFY(!isLocked("agents"));
    QCOMPARE(program.desktop.notifications.requests, 1);
  }

  void anotherProfileShowsWhatWasChosenInIt() {
    Program program;
    program.putOnBar({"countdown"});
    AppModel& model = program.delegate->model();
    model.duplicateProfile(model.activeProfileID());
    program.delegate->launch();
    CountdownModel& countdown = *program.delegate->areas().time.countdown();
    countdown.setTitle("Holidays");
    countdown.finish();
    const std::string first = model.activeProfile()->name;
    model.setPinnedProfileID(model.profiles()[1].id);
    QVERIFY(model.activeProfile()->name != first);
    countdown.setTitle("Release");
    countdown.finish();
    model.setPinnedProfileID(std::nullopt);
    QCOMPARE(countdown.face().title, "Holidays");
  }

  void theDisplaysMayChooseWithoutALicence() {
    Program program;
    program.delegate->launch();
    AppModel& model = program.delegate->model();
    model.setPinnedProfileID(model.profiles().back().id);
    program.delegate->license().setCheck([](ProFeature) { return false; });
    program.delegate->carryOut(MenuCommand::pinProfile, model.profiles().front().id);
    QCOMPARE(model.pinnedProfileID(), std::optional(model.profiles().back().id));
    QVERIFY(program.delegate->bar().isAnyPanelOpen());
    program.delegate->carryOut(MenuCommand::pinProfile, std::nullopt);
    QVERIFY(!model.pinnedProfileID());
  }

  void buddyIsPutOnEveryBarOnce() {
    Program program;
    const auto isFirst = [&](const Profile& profile) { return profile.items.front().widget == "buddy"; };
    program.delegate->launch();
    const auto& profiles = program.delegate->model().profiles();
    QVERIFY(profiles.size() > 1);
    QVERIFY(std::all_of(profiles.begin(), profiles.end(), isFirst));
    QCOMPARE(UserDefaults(program.folder / "defaults.json").boolean("buddyAdded"), true);

    // Whoever has taken him away is not given him back.
    program.putOnBar({"clock"});
    program.restart();
    program.delegate->launch();
    QVERIFY(!program.delegate->model().isOnBar("buddy"));
  }

  void nothingComesByItselfOverAFilm() {
    Program program;
    program.delegate->launch();
    program.desktop.pointer.at = Point{800, 450};
    BarWindows& windows = program.delegate->bar();
    BuddyNoticeCenter& notices = program.delegate->areas().notices();
    const auto fill = [&](bool isFilled) {
      auto screens = program.desktop.screens.screens;
      screens.front().isFilled = isFilled;
      program.desktop.screens.change(screens);
    };
    // Urgent: it stays until it is answered.
    notices.post(BuddyNotice("x", BuddyRule::agentNeedsInput, "Codex needs you", "", {}));
    QVERIFY(notices.hasBubble() && windows.dock().presentation().isShown());
    fill(true);
    program.passAtBar(1);
    QVERIFY(!notices.hasBubble() && !windows.dock().presentation().isShown());
    notices.post(BuddyNotice("y", BuddyRule::agentNeedsInput, "Claude needs you", "", {}));
    int looks = 0;
    windows.peeker().gatherMore = [&](PeekSignals&) { ++looks; };
    windows.peeker().check(program.desktop.clock.now());
    QCOMPARE(looks, 0);
    QVERIFY(!notices.hasBubble() && !windows.dock().presentation().isShown());
    // A panel that closes over it does not free the way.
    windows.openSettings();
    windows.panels().closeAll();
    QVERIFY(!notices.hasBubble());
    fill(false);
    QVERIFY(notices.hasBubble() && windows.dock().presentation().isShown());
    QCOMPARE(notices.bubbleMore(), 1);
    windows.peeker().check(program.desktop.clock.now());
    QCOMPARE(looks, 1);
  }

  void whatIsAskedInOneProfileIsAnsweredInIt() {
    Program program;
    program.delegate->launch();
    AppModel& model = program.delegate->model();
    Areas& areas = program.delegate->areas();
    std::vector<Profile> profiles = Profile::defaults();
    for (Profile& profile : profiles) profile.items = holding({"gitStatus", "folder", "shortcuts"});
    model.setProfiles(profiles);
    const UUID asking = profiles[0].id, other = profiles[1].id;
    for (const char* path : {"/other", "/late"}) program.desktop.launcher.scripts.push_back({path, path, path, {}});
    const auto shown = [&](const UUID& profile, const char* key) {
      const auto* value = slotSetting(*model.profileWith(profile), key);
      return value && *value ? std::get<std::string>((*value)->value) : "nothing";
    };
    using Chooser = std::function<void(const std::string&)>;
    const std::pair<const char*, std::function<Chooser()>> rows[] = {
        {"gitStatusFolder", [&] { return areas.developer.git()->chooser(); }},
        {"folderWidgetPath", [&] { return areas.stores.chosenFolder()->chooser(); }},
        {"shortcutWidgetName", [&] { return areas.stores.shortcut()->scriptChooser(); }}};
    for (const auto& [key, chooser] : rows) {
      model.setPinnedProfileID(asking);
      const Chooser answer = chooser();
      model.setPinnedProfileID(other);
      chooser()("/other");
      answer("/late");
      QCOMPARE(shown(other, key), "/other");
      QCOMPARE(shown(asking, key), "/late");
    }
    // Buddy, too, needs a while.
    areas.assistant.assistant()->ask(QStringLiteral("Add Clock"));
    QVERIFY(areas.assistant.assistant()->isResponding());
    model.setPinnedProfileID(asking);
    QTRY_VERIFY(!areas.assistant.assistant()->isResponding());
    QVERIFY(model.profileWith(other)->contains("clock") && !model.profileWith(asking)->contains("clock"));
  }

  void buddysTileOpensHisInbox() {
    Program program;
    program.delegate->launch();
    WidgetContext& context = program.delegate->context();
    Q_EMIT context.activationAsked(context.itemOf("buddy"));
    QVERIFY(program.delegate->bar().inboxPanel().isShown());
    // What he would say meanwhile can be read there.
    program.delegate->areas().notices().post(BuddyNotice("x", BuddyRule::agentNeedsInput, "Codex needs you", "", {}));
    QVERIFY(!program.delegate->areas().notices().hasBubble());
    Q_EMIT context.activationAsked(context.itemOf("buddy"));
    QVERIFY(!program.delegate->bar().inboxPanel().isShown());
    QCOMPARE(program.delegate->areas().notices().inbox().newCount, 0);
  }

  void whileBuddySpeaksTheBarStays() {
    Program program;
    program.delegate->launch();
    program.desktop.pointer.at = Point{800, 450};
    program.delegate->settings().set(setting::barAlwaysVisible, false);
    DockPanelController& bar = program.delegate->bar().dock();
    program.delegate->areas().notices().post(BuddyNotice("x", BuddyRule::agentNeedsInput, "Codex needs you", "", {}));
    QVERIFY(program.delegate->areas().notices().hasBubble());
    program.passAtBar(30);
    QVERIFY(bar.presentation().isShown());
    program.delegate->areas().notices().closeBubble();
    program.passAtBar(1);
    QVERIFY(!bar.presentation().isShown());
  }

  void aHookThatStaysKeepsEverythingFromBeingDeleted() {
    Program program;
    program.delegate->launch();
    ConnectionModel& line = *program.delegate->areas().usage.statusLine();
    line.install();
    QVERIFY(line.isConnected());
    const auto settings = program.folder / "home/.claude/settings.json";
    program.folder.write("home/.claude/settings.json", readFile(settings).value() + "]");
    line.look();
    QVERIFY2(!line.isConnected(), "nobody can tell");
    PrivacyModel& privacy = *program.delegate->areas().panels.privacy();
    privacy.deleteKept({});
    QVERIFY(!program.delegate->deletion());
    QCOMPARE(program.warnings.take().size(), 1);
    program.folder.write("home/.claude/settings.json", "{}");
    privacy.deleteKept({});
    QVERIFY(program.delegate->deletion());
  }

  void theLookFollowsTheSettingsAndTheirFile() {
    Program program;
    program.delegate->settings().set(setting::theme, ThemeChoice::light);
    program.restart();
    program.delegate->launch();
    const Theme& theme = themeOf(program.delegate->engine());
    QVERIFY(!theme.dark());
    program.delegate->settings().set(setting::theme, ThemeChoice::dark);
    QVERIFY(theme.dark() && !theme.alwaysReducesMotion());
    // As from an editor or tilebayctl.
    UserDefaults(program.folder / "defaults.json").set("reduceMotion", DefaultsValue{true});
    QTRY_VERIFY(theme.alwaysReducesMotion());
  }

  void signalsEndItAsItsMenuDoes() {
    int quits = 0;
    const QuitSignals signals([&] { ++quits; });
    int raised = 0;
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
      raise(signal);
      ++raised;
      QTRY_COMPARE(quits, raised);
    }
  }
};

}  // namespace ambrel

QTEST_MAIN(ambrel::AppDelegateTests)
#include "AppDelegateTests.moc"
