#include <QTest>

#include "app/base/Presentation.h"
#include "app/developer/DeveloperArea.h"
#include "tests/TemporaryFolder.h"
#include "tests/app/kit/Looks.h"
#include "tests/app/kit/TileBoard.h"
#include "tests/fakes/FakeDeveloperTools.h"
#include "tests/fakes/FakeFolderWatch.h"
#include "tests/fakes/FakeShell.h"
#include "tests/fakes/HeldWork.h"

namespace ambrel {
namespace {

struct DeveloperRoom {
  DeveloperRoom() { start(); }
  void start() {
    area = std::make_unique<DeveloperArea>(DeveloperArea::Seams{.engine = engine,
                                                                .defaults = defaults,
                                                                .repositoryFolders = watch,
                                                                .tools = tools,
                                                                .home = "/home/u",
                                                                .background = [this] { return work.background(); },
                                                                .calendar = Calendar("UTC", "en_US"),
                                                                .now = [this] { return now; },
                                                                .open = [](const QUrl&) { return true; },
                                                                .repositoryPause = {}},
                                           shell);
  }
  void see(std::set<DockWidget> onBar, bool areSeen = true) {
    area->widgetsChanged(onBar, areSeen, now);
    work.letGo();
  }
  void tick(int times) {
    for (int i = 0; i < times; ++i) area->tick(now);
    work.letGo();
  }
  std::vector<std::string> takeAsked() { return std::exchange(tools->asked, {}); }

  TemporaryFolder folder;
  UserDefaults defaults{folder / "defaults.json"};
  QQmlEngine engine;
  FakeFolderWatch watch;
  FakeShell shell;
  HeldWork work;
  Instant now = *parseISO8601("2026-11-22T14:00:00Z");
  std::shared_ptr<FakeDeveloperTools> tools = std::make_shared<FakeDeveloperTools>();
  std::unique_ptr<DeveloperArea> area;
};

using Asked = std::vector<std::string>;

GitReading repository() {
  GitReading reading;
  reading.state = {.top = "/home/u/shop",
                   .branch = "feature/a-long-name-for-a-branch",
                   .commit = "0a1b2c3",
                   .upstream = GitState::Upstream{.name = "origin/main", .ahead = 12, .behind = 3},
                   .changes = GitState::Changes{.staged = 1, .changed = 20, .untracked = 3, .conflicts = 2},
                   .stashes = 1,
                   .operation = GitState::Operation::rebase,
                   .step = 2,
                   .steps = 5};
  reading.folders = {{"/home/u/shop/.git"}, {"/home/u/shop"}};
  return reading;
}

const std::set<DockWidget> allTiles{DockWidget::gitStatus, DockWidget::ports, DockWidget::docker, DockWidget::homebrew,
                                    DockWidget::simulators};

void fill(DeveloperRoom& room) {
  room.tools->repository = repository();
  room.tools->listening = {{5173, {"::1"}, 1000, 70, 1, "node", "/home/u/a/folder/with/a/long/name/shop"},
                           {53, {"127.0.0.53"}, 101}};
  room.tools->engine =
      ContainerReading{"Docker",
                       {{"a1", "web", "nginx:1.25", "Up 2 hours (unhealthy)", true, Container::Health::unhealthy, {80}},
                        {"b2", "a-container-with-a-long-name-1", "registry.example.org/a/long/image:1", "Exited (0)"}}};
  room.tools->packages = std::vector<std::string>{"wget 1.21.3 → 1.24.5", "node"};
  room.tools->devices = std::vector<Simulator>{{Simulator::Maker::android, "P", "Pixel 8", "android-34", true},
                                               {Simulator::Maker::android, "T", "Tablet", "", false}};
}

}  // namespace

class DeveloperTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void readsOnlyWhatCanBeSeen() {
    DeveloperRoom room;
    room.see(allTiles, false);
    room.tick(100);
    QVERIFY(room.tools->asked.empty());
    room.see({DockWidget::ports});
    QCOMPARE(room.takeAsked(), Asked{"servers"});
    room.see({}, true);
    room.area->servers()->look();
    room.tick(100);
    QVERIFY(room.tools->asked.empty());
  }

  void followsTheRepositoryAndReadsItAgainWhenItChanges() {
    DeveloperRoom room;
    room.tools->repository = repository();
    room.see({DockWidget::gitStatus});
    QVERIFY(room.takeAsked().empty());  // none is chosen
    room.area->git()->chooser()("/home/u/shop/src/");
    room.work.letGo();
    QCOMPARE(room.area->git()->face().branch, QStringLiteral("feature/a-long-name-for-a-branch"));
    QCOMPARE(room.watch.followed, repository().folders);
    // Once more, since a change before the watching began was told by nobody; and later, since it is paced.
    QCOMPARE(room.takeAsked(), Asked{"git /home/u/shop/src"});
    QTRY_VERIFY(!room.work.waiting.empty());
    room.work.letGo();
    QCOMPARE(room.takeAsked(), Asked{"git /home/u/shop/src"});
    // Out of sight the first change is noted, and the rest is not even heard of.
    room.see({DockWidget::gitStatus}, false);
    room.watch.change(0);
    QVERIFY(room.watch.followed.empty());
    QVERIFY(room.tools->asked.empty());
    room.tools->repository = ToolFailure{ToolFailure::Reason::missing};
    room.see({DockWidget::gitStatus});
    QTRY_VERIFY(!room.work.waiting.empty());
    room.work.letGo();
    QVERIFY(!room.area->git()->face().problem.isEmpty());
    QCOMPARE(room.watch.followed, std::vector<WatchedFolder>{{"/home/u/shop/src"}});  // it may come back
  }

  void looksNowAndThenAtARepositoryThatCannotBeWatched() {
    DeveloperRoom room;
    room.tools->repository = repository();
    room.defaults.set("gitStatusFolder", DefaultsValue{std::string("/home/u/shop")});
    room.start();
    room.watch.isWhole = false;
    room.see({DockWidget::gitStatus});
    QTRY_VERIFY(!room.work.waiting.empty());
    room.work.letGo();
    room.takeAsked();
    room.tick(GitModel::looksAgain - 1);
    QVERIFY(room.tools->asked.empty());
    room.tick(1);
    QTRY_VERIFY(!room.work.waiting.empty());
    room.work.letGo();
    room.takeAsked();
    // What has changed while the bar was away was told by nobody.
    room.see({DockWidget::gitStatus}, false);
    room.see({DockWidget::gitStatus});
    QTRY_VERIFY(!room.work.waiting.empty());
  }

  void actsOnTheRowThatWasMeantAndSaysWhyNot() {
    DeveloperRoom room;
    fill(room);
    room.see(allTiles);
    room.takeAsked();
    DeveloperList& containers = *room.area->containers();
    containers.act(QStringLiteral("b2"), true);
    containers.act(QStringLiteral("b2"), true);
    const auto isBusy = [&] {
      return containers.rows()->index(1, 0).data(containers.rows()->roleNames().key("isBusy")).toBool();
    };
    QVERIFY(isBusy());
    room.tools->doesAct = false;
    room.work.letGo();
    QVERIFY(!isBusy());
    QCOMPARE(room.takeAsked(), Asked{"run b2"});
    QCOMPARE(room.shell.toasts.size(), 1);
    containers.showLog(QStringLiteral("a1"));
    room.work.letGo();
    QCOMPARE(containers.property("log").toString(), QStringLiteral("log of a1"));
    room.area->servers()->act(rowIdOf(room.tools->listening[0]), false);
    room.area->servers()->act(QStringLiteral("71-5173-1000"), false);
    room.work.letGo();
    QCOMPARE(room.takeAsked(), Asked{"stop 70"});
    QCOMPARE(room.shell.toasts.size(), 3);
  }

  void looksForOutdatedPackagesEverySixHoursAndRemembersThem() {
    DeveloperRoom room;
    fill(room);
    room.now += std::chrono::hours(8);
    room.see({DockWidget::homebrew});
    QCOMPARE(room.takeAsked(), Asked{"brew"});
    QCOMPARE(room.defaults.strings("homebrewOutdated")->at(0), std::string("wget 1.21.3 → 1.24.5"));
    room.start();
    QCOMPARE(room.area->packages()->face().value, QStringLiteral("2 outdated"));
    QCOMPARE(room.area->packages()->face().subLine, QStringLiteral("Checked 10:00\u202fPM"));
    room.now += std::chrono::hours(5);
    room.see({DockWidget::homebrew});
    room.tick(100);
    QVERIFY(room.tools->asked.empty());
    QCOMPARE(room.area->packages()->face().subLine, QStringLiteral("Checked Nov 22"));
    room.area->packages()->lookAgain();
    room.tools->packages = ToolFailure{ToolFailure::Reason::failed};
    room.work.letGo();
    QCOMPARE(room.takeAsked(), Asked{"brew"});
    QCOMPARE(room.defaults.strings("homebrewOutdated")->size(), std::size_t(2));  // what was known is kept
  }

  void rowsActOnWhatTheyAreOfByNow() {
    DeveloperRoom room;
    fill(room);
    room.see({DockWidget::docker, DockWidget::simulators});
    Presentation presentation([](Seconds, const std::function<void()>&) {});
    Scene scene;
    QVERIFY(showPanels(scene, *room.area, {"Docker", "Simulators"},
                       {{QStringLiteral("presentation"), QVariant::fromValue(&presentation)}}));
    room.takeAsked();
    const auto press = [&](const char* name) {
      for (int i = 0; i < 40 && spokenName(scene.window().activeFocusItem()) != QLatin1String(name); ++i)
        QTest::keyClick(&scene.window(), Qt::Key_Tab);
      QTest::keyClick(&scene.window(), Qt::Key_Return);
      room.work.letGo();
    };
    press("Pixel 8, android-34 · running");
    press("Tablet");
    press("Stop web");
    QCOMPARE(room.takeAsked().front(), std::string("start T"));
    QCOMPARE(namesByTab(scene).filter("Stop web?").size(), 1);
    std::get<ContainerReading>(room.tools->engine).containers.front().isRunning = false;
    room.area->containers()->lookAgain();
    QTRY_VERIFY((room.work.letGo(), namesByTab(scene).contains(QStringLiteral("Start web"))));
    QCOMPARE(namesByTab(scene).filter("Stop web?").size(), 0);
  }

  // Missing and full.
  void everythingCanBeReadAndReached() {
    for (const bool isFull : {false, true}) {
      DeveloperRoom room;
      if (isFull) {
        fill(room);
        room.defaults.set("gitStatusFolder", DefaultsValue{std::string("/home/u/shop")});
        room.start();
      }
      room.see(allTiles);
      Presentation presentation([](Seconds, const std::function<void()>&) {});
      {
        Scene scene;
        QCOMPARE(showTiles(scene, {room.area.get()}), 5 * 4);
        QCOMPARE(faultsInBothSchemes(scene, isFull ? "developer" : "developer-missing"), QStringList());
        QCOMPARE(collisionsOfTiles(scene), QStringList());
      }
      Scene scene;
      QVERIFY(showPanels(scene, *room.area, {"Git", "Ports", "Docker", "Homebrew", "Simulators"},
                         {{QStringLiteral("presentation"), QVariant::fromValue(&presentation)}}));
      QCOMPARE(faultsInBothSchemes(scene, isFull ? "developer-panels" : "developer-panels-missing"), QStringList());
      QCOMPARE(namesByTab(scene).filter("nameless"), QStringList());
    }
  }
};

}  // namespace ambrel

QTEST_MAIN(ambrel::DeveloperTests)
#include "DeveloperTests.moc"
