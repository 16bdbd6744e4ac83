#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

#include "app/disk/DiskExplorer.h"
#include "app/disk/DiskTexts.h"
#include "app/disk/FindingListModel.h"
#include "app/disk/ScanNews.h"
#include "tests/core/disk/SyntheticTree.h"

namespace ambrel {
namespace {

const Instant now{std::chrono::seconds(2'000'000'000)};

CleanupItem item(const std::string& path, std::int64_t bytes) {
  CleanupItem out;
  out.url = path;
  out.title = path.substr(path.rfind('/') + 1);
  out.bytes = bytes;
  return out;
}

std::vector<DiskFinding> findings() {
  return {{FindingRule::appCaches, {item("/home/u/.cache", 30)}, "Caches."},
          {FindingRule::developerCaches, {item("/home/u/.npm", 20), item("/home/u/.cargo", 10)}, "Tools."},
          {FindingRule::oldSimulatorRuntimes, {item("/runtimes/17", 500)}, "Shown."},
          {FindingRule::trash, {item("/home/u/.Trash", 70)}, "Deleted."},
          {FindingRule::largeOldFiles, {item("/home/u/film.mkv", 900)}, "Large."}};
}

struct Fixture {
  FindingListModel model{"/home/u", Calendar("UTC", "en_US"), [] { return now; }};
  QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::QtTest};
  explicit Fixture() { model.setFindings(findings()); }

  QStringList titles() const {
    QStringList out;
    for (const FindingRow& row : model.rows()) out << row.title;
    return out;
  }
  Qt::CheckState check(const std::string& id) const {
    for (const FindingRow& row : model.rows())
      if (row.id == id) return row.checkState;
    return Qt::Unchecked;
  }
};

}  // namespace

class FindingListModelTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void rowsFollowGroupsAndRules();
  void groupsStandForWhatIsInThem();
  void onlyWhatIsSafeIsChosenAtOnce();
  void rowsThatOpenChangeNoOthers();
  void aReportLeavesWhatIsLeft();
  void explorerGoesDownAndUp();
  void hoveringSurvivesNothingThatIsGone();
  void aHalfReadTreeSaysWhatIsMissing();
  void longWaysShowTheirEnds();
  void newsIsFetchedTenTimesASecond();
  void shownTextsHideNothing_data();
  void shownTextsHideNothing();
};

void FindingListModelTests::rowsFollowGroupsAndRules() {
  Fixture fixture;
  QCOMPARE(fixture.titles(), QStringList({"Developer junk", "Developer caches", "App caches", "Big old files",
                                          "Large files you have not opened", "Trash", "The Trash", "Only shown",
                                          "Old simulator runtimes"}));
  QCOMPARE(fixture.model.rows()[1].detail, "2 items: .npm, .cargo");
  QCOMPARE(fixture.model.rows()[1].size, "30 bytes");
  QVERIFY(fixture.model.rows()[0].isSelectable);
  for (const int row : {5, 6, 7, 8}) QVERIFY(!fixture.model.rows()[static_cast<std::size_t>(row)].isSelectable);
  QCOMPARE(fixture.model.data(fixture.model.index(4), FindingListModel::RiskRole).toString(), "Careful");
}

void FindingListModelTests::groupsStandForWhatIsInThem() {
  Fixture fixture;
  FindingListModel& model = fixture.model;
  QSignalSpy changes(&model, &FindingListModel::selectionChanged);
  model.setSelected("/home/u/.npm", true);
  QCOMPARE(fixture.check("group:developerJunk"), Qt::PartiallyChecked);
  QCOMPARE(fixture.check("rule:developerCaches"), Qt::PartiallyChecked);
  QCOMPARE(model.selectionTitle(), "1 of 4 chosen");
  QCOMPARE(model.moveTitle(), "Move 20 bytes to the Trash");
  model.setSelected("group:developerJunk", true);
  QCOMPARE(fixture.check("group:developerJunk"), Qt::Checked);
  QCOMPARE(model.selectedItems().size(), 3u);
  model.setSelected("rule:appCaches", false);
  QCOMPARE(fixture.check("group:developerJunk"), Qt::PartiallyChecked);
  QCOMPARE(changes.count(), 3);
  model.setSelected("rule:appCaches", false);
  QCOMPARE(changes.count(), 3);
  model.selectNone();
  QCOMPARE(model.selectionTitle(), "Nothing chosen yet");
  QCOMPARE(model.moveTitle(), "Move to the Trash");
}

void FindingListModelTests::onlyWhatIsSafeIsChosenAtOnce() {
  Fixture fixture;
  QVERIFY(fixture.model.hasSafeItems());
  fixture.model.selectSafe();
  QCOMPARE(fixture.model.selection(), std::set<std::string>({"/home/u/.npm", "/home/u/.cargo"}));

  // One that needs more care than its rule says is left out, and the rule says so before it is opened.
  std::vector<DiskFinding> list = findings();
  list[1].items[1].ownRisk = CleanupRisk::review;
  fixture.model.setFindings(list);
  fixture.model.selectSafe();
  QCOMPARE(fixture.model.selection(), std::set<std::string>({"/home/u/.npm"}));
  QCOMPARE(fixture.model.rows()[1].risk, CleanupRisk::review);
}

void FindingListModelTests::rowsThatOpenChangeNoOthers() {
  Fixture fixture;
  FindingListModel& model = fixture.model;
  model.setSelected("/home/u/film.mkv", true);
  QSignalSpy resets(&model, &FindingListModel::modelReset), inserted(&model, &FindingListModel::rowsInserted);
  QSignalSpy removed(&model, &FindingListModel::rowsRemoved);
  model.toggleOpen("rule:developerCaches");
  QCOMPARE(inserted.count(), 1);  // the reason and two items, at once
  QCOMPARE(model.rows()[2].title, "Tools.");
  QCOMPARE(model.rows()[3].id, "/home/u/.npm");
  QCOMPARE(model.rows()[3].detail, "~");
  model.toggleOpen("group:developerJunk");
  QCOMPARE(model.rows()[1].title, "Big old files");
  model.toggleOpen("group:developerJunk");
  QCOMPARE(model.rows()[3].id, "/home/u/.npm");
  QCOMPARE(resets.count(), 0);
  QCOMPARE(model.selection(), std::set<std::string>({"/home/u/film.mkv"}));
}

void FindingListModelTests::aReportLeavesWhatIsLeft() {
  Fixture fixture;
  FindingListModel& model = fixture.model;
  model.setSelected("rule:developerCaches", true);
  model.setSelected("rule:largeOldFiles", true);
  model.setSelected("rule:appCaches", true);
  QCOMPARE(model.moveTitle(), "Move 960 bytes to the Trash");
  DiskAdvice::TrashReport report{.moved = {item("/home/u/film.mkv", 900)}, .failed = {}, .bytesMoved = 915};
  report.failed = {item("/home/u/.npm", 5), item("/home/u/.cache", 0)};
  report.failed[0].stayed = StayReason::diskFull;
  report.failed[1].stayed = StayReason::gone;
  model.takeReport(report);
  // What is left is chosen no more, and what was not asked for still is.
  QCOMPARE(model.selection(), std::set<std::string>({"/home/u/.cargo"}));
  QCOMPARE(model.moveTitle(), "Move 10 bytes to the Trash");
  QVERIFY(!fixture.titles().contains("Big old files"));
  QVERIFY(!fixture.titles().contains("App caches"));
  QCOMPARE(DiskAdvice::freeableBytes(model.findings()), 15);
  model.toggleOpen("rule:developerCaches");
  for (const FindingRow& row : model.rows())
    if (row.id == "/home/u/.npm") {
      QCOMPARE(row.size, "5 bytes");
      QCOMPARE(row.note, "The disk is full.");
      QVERIFY(row.hasStayed);
    }
}

void FindingListModelTests::explorerGoesDownAndUp() {
  DiskExplorer explorer(Calendar("UTC", "en_US"));
  const DiskTree tree = test::treeOf(
      "/home/u", {{"src/web/a", 5'000'000}, {"src/web/b", 3'000'000}, {"src/tiny", 10}, {"film.mkv", 9'000'000}});
  explorer.show(tree, "Home");
  QCOMPARE(explorer.name(), "Home");
  QCOMPARE(explorer.size(), "17 MB");
  QVERIFY(!explorer.canGoUp());
  QVERIFY(!explorer.enter("/home/u/film.mkv"));
  QVERIFY(!explorer.enter("/home/u"));
  QVERIFY(!explorer.enter("/home/elsewhere"));
  QVERIFY(explorer.enter("/home/u/src/web"));
  QCOMPARE(explorer.center().item->url(), "/home/u/src/web");
  QCOMPARE(explorer.path()->rowCount(), 3);
  explorer.goUp();
  QCOMPARE(explorer.center().item->url(), "/home/u/src");
  // One sees where one has been.
  QCOMPARE(explorer.hoveredID(), "/home/u/src/web");
  QCOMPARE(explorer.size(), "8 MB");
  explorer.setHoveredID(pathID("/home/u/src/\x01small"));
  QCOMPARE(explorer.name(), "Smaller items");
  QCOMPARE(explorer.legend()->rows().back().name, "Smaller items");
  QVERIFY(explorer.legend()->rows().back().isHighlighted);
  QVERIFY(explorer.enter("/home/u"));
  QVERIFY(!explorer.canGoUp());
}

void FindingListModelTests::hoveringSurvivesNothingThatIsGone() {
  DiskExplorer explorer(Calendar("UTC", "en_US"));
  explorer.show(test::treeOf("/base", {{"a", 5'000'000}}), "Base");
  explorer.setHoveredID("/base/a");
  explorer.show(test::treeOf("/base", {{"b", 7'000'000}}), "Base");
  QCOMPARE(explorer.size(), "7 MB");
  explorer.clear();
  QCOMPARE(explorer.size(), "");
  QCOMPARE(explorer.name(), "");
  QVERIFY(!explorer.enter("/base/b"));
  explorer.goUp();
}

void FindingListModelTests::aHalfReadTreeSaysWhatIsMissing() {
  DiskExplorer explorer(Calendar("UTC", "en_US"));
  const auto show = [&](std::vector<std::string> missing) {
    explorer.showUnfinished(
        {.root = test::treeOf("/home/u",
                              {{"src/a", 5'000'000}, {"b/b", 4'000'000}, {"c/c", 3'000'000}, {"d/d", 2'000'000}}),
         .share = 0.4,
         .bytes = 19'000'000,
         .missing = std::move(missing)},
        "Home");
  };
  show({"Documents", "bad\xff", "Music", "Videos"});
  QCOMPARE(explorer.center().share, 0.4);
  QCOMPARE(explorer.name(), "so far");
  // With what has been seen of folders that are not finished.
  QCOMPARE(explorer.size(), "19 MB");
  const auto& parts = explorer.legend()->rows();
  QStringList shown;
  for (const DiskPart& part : parts) shown << part.name + ": " + part.size;
  QCOMPARE(shown, QStringList({"src: 5 MB", "b: 4 MB", "c: 3 MB", "Documents: not yet", u8"bad\uFFFD: not yet",
                               "Music: not yet"}));
  QVERIFY(parts[3].color < 0);
  // What is still growing cannot be entered.
  QVERIFY(!parts[0].isFolder);
  QVERIFY(!explorer.enter("/home/u/src"));
}

void FindingListModelTests::longWaysShowTheirEnds() {
  DiskExplorer explorer(Calendar("UTC", "en_US"));
  explorer.show(test::treeOf("/r", {{"a/b/c/d/e/file", 5'000'000}}), "R");
  QVERIFY(explorer.enter("/r/a/b/c/d/e"));
  QStringList names;
  for (const DiskPart& part : explorer.path()->rows()) names << part.name;
  QCOMPARE(names, QStringList({"R", "…", "d", "e"}));
  // The one that stands for those left out leads to the nearest of them.
  QVERIFY(explorer.enter(pathID(explorer.path()->rows()[1].id)));
  QCOMPARE(explorer.center().item->url(), "/r/a/b/c");
}

void FindingListModelTests::newsIsFetchedTenTimesASecond() {
  QObject receiver;
  Instant time = now;
  int fetched = 0;
  const auto news = std::make_shared<ScanNews>(
      receiver, [&] { return time; }, [&] { ++fetched; });
  const DiskScanWatch watch = news->watch();
  const auto tell = [&](std::int64_t files, double share) {
    watch.progress({.files = files, .bytes = files * 10}, share);
    QCoreApplication::processEvents();
  };
  tell(500, 0.2);
  tell(1500, 0.3);
  tell(1000, 0.25);  // overtaken
  QCOMPARE(fetched, 1);
  QCOMPARE(news->take().progress.files, 1500);
  QCOMPARE(news->take().share, 0.3);
  time = advanced(time, Seconds(0.1));
  tell(2000, 0.3);
  QCOMPARE(fetched, 2);
  time = advanced(time, Seconds(1));
  watch.progress({.files = 2500, .bytes = 1}, 0.4);
  news->close();
  QCoreApplication::processEvents();
  tell(3000, 0.5);
  QCOMPARE(fetched, 2);
}

void FindingListModelTests::shownTextsHideNothing_data() {
  QTest::addColumn<QByteArray>("name");
  QTest::addColumn<QString>("shown");
  QTest::newRow("plain") << QByteArray("r\xc3\xa9sum\xc3\xa9.pdf") << QString(u8"r\u00e9sum\u00e9.pdf");
  QTest::newRow("no text") << QByteArray("a\xff\xfe") << QString(u8"a\uFFFD\uFFFD");
  QTest::newRow("one line") << QByteArray("a\nb\tc\xe2\x80\xa8z") << QString("a b c z");
  QTest::newRow("turned around") << QByteArray("gnp\xe2\x80\xae.exe") << QString(u8"gnp\uFFFD.exe");
}

void FindingListModelTests::shownTextsHideNothing() {
  QFETCH(QByteArray, name);
  QFETCH(QString, shown);
  QCOMPARE(shownName(name.toStdString()), shown);
  QCOMPARE(pathOf(pathID(name.toStdString())), name.toStdString());
}

}  // namespace ambrel

QTEST_GUILESS_MAIN(ambrel::FindingListModelTests)
#include "FindingListModelTests.moc"
