#include <QTest>

#include "platform/linux/InotifyFolderWatch.h"
#include "tests/TemporaryFolder.h"

namespace ambrel {

namespace {

struct Watched {
  TemporaryFolder folder;
  std::set<std::size_t> heard;
  InotifyFolderWatch watch;

  explicit Watched(std::size_t most = 100) : watch(most) {}
  void follow(std::vector<WatchedFolder> folders) {
    watch.follow(std::move(folders), [this](std::size_t which) { heard.insert(which); });
  }
  // What is told of this and of nothing before.
  bool hears(std::size_t which) {
    const bool has = QTest::qWaitFor([&] { return heard.contains(which); }, 15000);
    heard.clear();
    return has;
  }
  // Events come in the order of the changes: once the last is heard, there is nothing of those before it.
  bool hearsOnly(std::size_t which) {
    const bool has = QTest::qWaitFor([&] { return heard.contains(which); }, 15000);
    return has && std::exchange(heard, {}).size() == 1;
  }
};

}  // namespace

class InotifyFolderWatchTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void tellsOfWhatIsWrittenInAFolderAndAsDeepAsAsked() {
    Watched w;
    w.folder.write("logs/a/old.jsonl", "");
    w.folder.write("logs/a/deep/x.jsonl", "");
    w.folder.write("fence/x", "");
    w.follow({{w.folder / "logs", 1}, {w.folder / "fence"}});
    QVERIFY(w.watch.tellsAll());
    w.folder.write("logs/a/old.jsonl", "more");
    QVERIFY(w.hears(0));
    std::filesystem::create_directories(w.folder / "logs/b");
    QVERIFY(w.hears(0));
    w.folder.write("logs/b/new.jsonl", "text");
    QVERIFY(w.hears(0));
    w.folder.write("logs/a/deep/x.jsonl", "more");
    w.folder.write("fence/x", "more");
    QVERIFY(w.hearsOnly(1));
  }

  void followsAFolderThatComesLaterGoesAndComesAgain() {
    Watched w;
    w.follow({{w.folder / "tool/deep/sessions"}});
    for (int time = 0; time < 2; ++time) {
      w.folder.write("tool/deep/sessions/1.json", "{}");
      QVERIFY(w.hears(0));
      w.folder.write("tool/deep/sessions/1.json", "{ }");
      QVERIFY(w.hears(0));
      std::filesystem::rename(w.folder / "tool", w.folder / ("tool" + std::to_string(time)));
      QVERIFY(w.hears(0));
    }
    QVERIFY(w.watch.tellsAll());
  }

  void saysWhenItCannotTellAll() {
    Watched w(4);
    for (const char* name : {"a", "b", "c", "d", "e"}) std::filesystem::create_directories(w.folder / "logs" / name);
    w.follow({{w.folder / "logs", 1}});
    QVERIFY(!w.watch.tellsAll());
    // What is watched is told still.
    w.folder.write("logs/new", "");
    QVERIFY(w.hears(0));
  }

  void namesTheFilesThatHaveChanged() {
    Watched w;
    w.folder.write("work/a.ics", "");
    w.folder.write("work/b.ics", "");
    w.follow({{w.folder / "work"}});
    QVERIFY(!w.watch.takeChangedFiles());
    w.folder.write("work/b.ics", "text");
    QVERIFY(w.hears(0));
    QCOMPARE(w.watch.takeChangedFiles().value(), std::vector{w.folder / "work/b.ics"});
    std::filesystem::create_directories(w.folder / "work/deep");
    QVERIFY(w.hears(0));
    QVERIFY(!w.watch.takeChangedFiles());
  }
};

}  // namespace ambrel

QTEST_GUILESS_MAIN(ambrel::InotifyFolderWatchTests)
#include "InotifyFolderWatchTests.moc"
