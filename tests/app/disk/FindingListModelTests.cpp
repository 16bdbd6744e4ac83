#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>
#include <algorithm>

#include "app/disk/DiskExplorer.h"
#include "app/disk/DiskTexts.h"
#include "app/disk/FindingListModel.h"
#include "app/disk/ScanNews.h"
#include "tests/core/disk/SomeFindings.h"
#include "tests/core/disk/SyntheticTree.h"

namespace ambrel {
namespace {

const Instant now{std::chrono::seconds(2'000'000'000)};

using test::findings;
using test::item;

struct Fixture {
  FindingListModel model{"/home/u", Calendar("UTC", "en_US"), [] { return now; }};
  QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::QtTest};
  explicit Fixture() { model.setFindings(findings()); }

  QStringList titles() const {
    QStringList out;
    for (const FindingRow& row : model.rows()) out << row.title;
    return out;
  }
};

}  // namespace

class FindingListModelTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void rowsSayWhatWasFoundAndChosen() {
    Fixture fixture;
    FindingListModel& model = fixture.model;
    QCOMPARE(fixture.titles(), QStringList({"Developer junk", "Developer caches", "App caches", "Big old files",
                                            "Large files you have not opened", "Trash", "The Trash", "Only shown",
                                            "Old simulator runtimes"}));
    QCOMPARE(model.rows()[1].label(), "Developer caches, 2 items: .npm, .cargo, Safe, 30 bytes");
    QVERIFY(model.rows()[0].isSelectable && !model.rows()[5].isSelectable && !model.rows()[7].isSelectable);
    QCOMPARE(model.index(4).data(FindingListModel::role("risk")).toString(), "Careful");
    QCOMPARE(model.choice().title, "Nothing chosen yet");
    model.setSelected("/home/u/.npm", true);
    QCOMPARE(model.rows()[0].checkState, Qt::PartiallyChecked);
    QCOMPARE(model.rows()[1].checkState, Qt::PartiallyChecked);
    QCOMPARE(model.choice().title, "1 of 4 chosen");
    QCOMPARE(model.choice().moveTitle, "Move 20 bytes to the Trash");
    DiskAdvice::TrashReport report{.moved = {}, .failed = {item("/home/u/.npm", 5)}, .bytesMoved = 15};
    report.failed[0].stayed = StayReason::diskFull;
    model.toggleOpen("rule:developerCaches");
    model.takeReport(report);
    const auto stayed = std::ranges::find(model.rows(), "/home/u/.npm", &FindingRow::id);
    QCOMPARE(stayed->size, "5 bytes");
    QCOMPARE(stayed->note, "The disk is full.");
    QVERIFY(stayed->hasStayed && stayed->checkState == Qt::Unchecked);
  }

  void rowsThatOpenChangeNoOthers() {
    Fixture fixture;
    FindingListModel& model = fixture.model;
    auto dated = findings();
    dated[1].items[0].modified = now - std::chrono::hours(2);
    model.setFindings(std::move(dated));
    model.setSelected("/home/u/film.mkv", true);
    QSignalSpy resets(&model, &FindingListModel::modelReset), inserted(&model, &FindingListModel::rowsInserted);
    QSignalSpy removed(&model, &FindingListModel::rowsRemoved);
    model.toggleOpen("rule:developerCaches");
    QCOMPARE(inserted.count(), 1);  // the reason and two items, at once
    QCOMPARE(model.rows()[2].title, "Tools.");
    QCOMPARE(model.rows()[3].id, "/home/u/.npm");
    QCOMPARE(model.rows()[3].detail,
             shownAge(Calendar("UTC", "en_US"), now - std::chrono::hours(2), now) + QString(u8" \u00b7 ~"));
    QCOMPARE(model.rows()[4].detail, "~");
    model.toggleOpen("group:developerJunk");
    QCOMPARE(model.rows()[1].title, "Big old files");
    model.toggleOpen("group:developerJunk");
    QCOMPARE(model.rows()[3].id, "/home/u/.npm");
    QCOMPARE(resets.count(), 0);
    QCOMPARE(model.selection().paths(), std::set<std::string>({"/home/u/film.mkv"}));
  }

  void explorerGoesDownAndUp() {
    DiskExplorer explorer(Calendar("UTC", "en_US"));
    const DiskTree tree = test::treeOf(
        "/home/u", {{"src/web/a", 5'000'000}, {"src/web/b", 3'000'000}, {"src/tiny", 10}, {"film.mkv", 9'000'000}});
    explorer.show(tree, "Home");
    QCOMPARE(explorer.spot().name, "Home");
    QCOMPARE(explorer.spot().size, "17 MB");
    QVERIFY(!explorer.spot().canGoUp);
    QVERIFY(!explorer.enter("/home/u/film.mkv"));
    QVERIFY(!explorer.enter("/home/u"));
    QVERIFY(!explorer.enter("/home/elsewhere"));
    QVERIFY(explorer.enter("/home/u/src/web"));
    QCOMPARE(explorer.spot().center.item->url(), "/home/u/src/web");
    QCOMPARE(explorer.path()->rowCount(), 3);
    explorer.goUp();
    QCOMPARE(explorer.spot().center.item->url(), "/home/u/src");
    // One sees where one has been.
    QCOMPARE(explorer.hoveredID(), "/home/u/src/web");
    QCOMPARE(explorer.spot().size, "8 MB");
    explorer.setHoveredID(pathID("/home/u/src/\x01small"));
    QCOMPARE(explorer.spot().name, "Smaller items");
    QCOMPARE(explorer.legend()->rows().back().name, "Smaller items");
    QVERIFY(explorer.legend()->rows().back().isHighlighted);
    QVERIFY(explorer.enter("/home/u"));
    QVERIFY(!explorer.spot().canGoUp);
  }

  void aHalfReadTreeSaysWhatIsMissing() {
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
    QCOMPARE(explorer.spot().center.share, 0.4);
    QCOMPARE(explorer.spot().name, "so far");
    // With what has been seen of folders that are not finished.
    QCOMPARE(explorer.spot().size, "19 MB");
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

  void longWaysShowTheirEnds() {
    DiskExplorer explorer(Calendar("UTC", "en_US"));
    explorer.show(test::treeOf("/r", {{"a/b/c/d/e/file", 5'000'000}}), "R");
    QVERIFY(explorer.enter("/r/a/b/c/d/e"));
    QStringList names;
    for (const DiskPart& part : explorer.path()->rows()) names << part.name;
    QCOMPARE(names, QStringList({"R", "…", "d", "e"}));
    // The one for those left out leads to the nearest of them.
    QVERIFY(explorer.enter(explorer.path()->rows()[1].id));
    QCOMPARE(explorer.spot().center.item->url(), "/r/a/b/c");
  }

  void newsIsFetchedTenTimesASecond() {
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
};

}  // namespace ambrel

QTEST_GUILESS_MAIN(ambrel::FindingListModelTests)
#include "FindingListModelTests.moc"
