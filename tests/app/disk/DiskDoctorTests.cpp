#include <QSignalSpy>
#include <QTest>
#include <algorithm>

#include "app/disk/SimulatorTool.h"
#include "tests/app/disk/DiskHome.h"

namespace ambrel {
namespace {

using Phase = DiskDoctor::Phase;
using Stage = ReviewFace::Stage;

QStringList named(const std::vector<std::string>& paths) {
  QStringList names;
  for (const std::string& path : paths) names << shownName(path.substr(path.rfind('/') + 1));
  return names;
}

// Moves what has been chosen.
void moveChosen(DiskHome& desk) {
  desk.doctor().reviewSelection();
  desk.doctor().review()->confirm();
  desk.held.letGo();
}

}  // namespace

class DiskDoctorTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void aScanGoesFromStartToDone() {
    DiskHome desk;
    DiskDoctor& doctor = desk.doctor();
    std::int64_t scanned = 0;
    QObject::connect(&doctor, &DiskDoctor::scanFinished, [&](std::int64_t bytes) { scanned = bytes; });
    QCOMPARE(doctor.phase(), Phase::start);

    doctor.scanHome();
    QCOMPARE(doctor.phase(), Phase::scanning);
    QVERIFY(!doctor.face().isAnalyzing);
    QCOMPARE(doctor.progress().title, "Scanning");
    desk.held.letGo();
    QCOMPARE(doctor.phase(), Phase::scanning);
    QVERIFY(doctor.face().isAnalyzing);
    QCOMPARE(doctor.explorer()->spot().name, "Home");
    QVERIFY(!doctor.findings()->choice().hasFindings);
    desk.held.letGo();
    QCOMPARE(doctor.phase(), Phase::done);
    QVERIFY(!doctor.face().isAnalyzing);
    QCOMPARE(scanned, doctor.explorer()->root()->size());
    QCOMPARE(doctor.face().headline, "Mostly Developer junk and Old downloads");
    QVERIFY2(doctor.face().summary.startsWith("home uses 24 MB. Most of it is in "), qPrintable(doctor.face().summary));
    QVERIFY2(doctor.face().summary.endsWith(" The Trash holds 2 MB."), qPrintable(doctor.face().summary));
    QCOMPARE(doctor.findings()->selection().paths().size(), 0u);
  }

  void aSecondScanLeavesOnlyItsOwnResult() {
    DiskHome desk;
    desk.fill("other/file", 1);
    DiskDoctor& doctor = desk.doctor();
    doctor.scanHome();
    auto first = std::move(desk.held.waiting.front());
    desk.held.waiting.clear();
    first.first();  // read to its end, and not yet told
    doctor.scan(desk.home + "/other/");
    QCOMPARE(doctor.sourceTitle(), "other");
    auto second = std::move(desk.held.waiting.front());
    desk.held.waiting.clear();
    second.first();
    second.second();
    first.second();  // overtaken
    QCOMPARE(doctor.explorer()->root()->url(), desk.home + "/other");
    desk.held.letGo();
    QCOMPARE(doctor.phase(), Phase::done);
    QCOMPARE(doctor.explorer()->spot().name, "other");
    // The first one's rules were never asked for.
    QVERIFY(desk.held.waiting.empty());
  }

  void aFolderThatCannotBeReadIsNamed() {
    DiskHome desk;
    DiskDoctor& doctor = desk.doctor();
    doctor.scan(desk.home + "/missing");
    desk.held.letGo();
    QCOMPARE(doctor.phase(), Phase::start);
    QCOMPARE(doctor.face().message, "Buddy could not read missing");
    doctor.scanHome();
    QCOMPARE(doctor.face().message, "");
  }

  void aStoppedScanKeepsNothing() {
    for (const int steps : {0, 1}) {
      DiskHome desk;
      DiskDoctor& doctor = desk.doctor();
      doctor.scanHome();
      for (int i = 0; i < steps; ++i) desk.held.letGo();
      QCOMPARE(doctor.phase(), Phase::scanning);
      doctor.stop();
      QCOMPARE(doctor.phase(), Phase::start);
      desk.finishScan();
      QCOMPARE(doctor.phase(), Phase::start);
      QCOMPARE(doctor.face().message, "The scan was stopped. Nothing was changed.");
      QVERIFY(!doctor.explorer()->root());
      QVERIFY(!doctor.findings()->choice().hasFindings);
    }
  }

  void theFaceSaysWhatIsKnown() {
    const Calendar calendar("UTC", "en_US");
    DiskStatus status{.phase = Phase::done, .skipped = {"/home/u/b", "/home/u/a"}, .knowsAccess = false};
    const DiskFace face = diskFace(status, "/home/u", calendar);
    QVERIFY(face.isDone && !face.isScanning && !face.isGuarded);
    QCOMPARE(face.skippedText, "2 protected folders were skipped. Read permission lets Buddy read them.");
    QCOMPARE(face.skippedFolders, "~/a\n~/b");
    QVERIFY(face.unknownText.startsWith("This volume does not note when files are opened."));
    status.skipped.resize(14, "/x");
    QCOMPARE(diskFace(status, "/home/u", calendar).skippedFolders.count(u'\n'), 12);
    QCOMPARE(diskFace({}, "/home/u", calendar).skippedText, "");
    QCOMPARE(compareProgress({.bytes = 0, .expected = 0}, calendar).figure, "");
    QCOMPARE(compareProgress({.bytes = 999'999, .expected = 1'000'000}, calendar).figure, "99 %");
  }

  void theHomeIsAskedForFirst() {
    DiskHome desk;
    bool hasAccess = false;
    auto seams = desk.seams();
    seams.hasAccess = [&] { return hasAccess; };
    desk.make(seams);
    DiskDoctor& doctor = desk.doctor();
    doctor.scanHome();
    QCOMPARE(doctor.phase(), Phase::access);
    doctor.retryAccess();
    QCOMPARE(doctor.phase(), Phase::access);
    hasAccess = true;
    doctor.retryAccess();
    QCOMPARE(doctor.phase(), Phase::scanning);
    // Other folders are no matter of the home's guard, and who has passed it by is not asked again.
    hasAccess = false;
    doctor.scan(desk.home + "/Documents");
    QCOMPARE(doctor.phase(), Phase::scanning);
    doctor.scanHome();
    doctor.skipAccess();
    QCOMPARE(doctor.phase(), Phase::scanning);
    doctor.scanHome();
    QCOMPARE(doctor.phase(), Phase::scanning);
  }

  void runtimesComeFromTheTool() {
    const std::string list = "echo '{\"a\":{\"identifier\":\"i\",\"version\":\"17.2\",\"sizeBytes\":7}}'";
    const std::string check = "[ \"$*\" = 'simctl runtime list -j' ] || exit 1\n";
    const struct {
      const char* what;
      std::string script;
      bool isInstalled;
      std::size_t count;
    } rows[] = {{"a list", check + list, true, 1},
                {"without a sign of it the tool is not started", check + list, false, 0},
                {"a failure", list + "\nexit 3", true, 0},
                {"something else", "echo no list", true, 0},
                {"a tool that does not end", list + "\nexec sleep 600", true, 0}};
    for (const auto& [what, script, isInstalled, count] : rows) {
      const TemporaryFolder folder;
      const auto tool = folder.write("tool", "#!/bin/sh\n" + script + "\n");
      std::filesystem::permissions(tool, std::filesystem::perms::owner_all);
      const std::chrono::milliseconds timeout(script.ends_with("sleep 600") ? 50 : 15'000);
      const std::vector<std::string> signs{isInstalled ? tool.string() : "/nowhere", "/nowhere/else"};
      QVERIFY2(readRuntimes({.program = tool, .signs = signs, .timeout = timeout}).size() == count, what);
    }
  }

  // Whatever is chosen, hovered, entered or opened after the review has begun.
  void theListThatWasReviewedMoves() {
    DiskHome desk;
    DiskDoctor& doctor = desk.scanHome();
    desk.choose("Downloads/old.iso");
    desk.choose("src/web/node_modules");
    doctor.reviewSelection();
    QCOMPARE(doctor.review()->face().stage, Stage::reviewing);
    QCOMPARE(doctor.review()->face().title, "Move 2 items to the Trash?");
    QCOMPARE(doctor.review()->items()->rowCount(), 2);

    doctor.findings()->setSelected("group:developerJunk", true);
    doctor.findings()->setSelected(desk.idOf("Downloads/old.iso"), false);
    doctor.explorer()->enter(desk.idOf("src"));
    doctor.explorer()->setHoveredID(desk.idOf("src/web"));
    doctor.askAbout(desk.idOf("Documents"));
    doctor.review()->confirm();
    QCOMPARE(doctor.review()->face().stage, Stage::moving);
    desk.held.letGo();

    auto asked = desk.trash.asked;
    std::sort(asked.begin(), asked.end());
    QCOMPARE(named(asked), QStringList({"old.iso", "node_modules"}));
    QVERIFY(desk.exists("src/web/package.json"));
    QVERIFY(desk.exists("Downloads/older.zip"));
    QVERIFY(desk.exists("Documents/thesis.pdf"));
    QCOMPARE(doctor.review()->face().stage, Stage::reported);
    QCOMPARE(std::ranges::count_if(doctor.review()->items()->rows(), &CleanupRow::hasMoved), 2);
  }

  // After a move, its list is used up: no folder above it and no neighbour takes its place.
  void aSecondConfirmationMovesNothing() {
    DiskHome desk;
    DiskDoctor& doctor = desk.scanHome();
    desk.choose("Downloads/old.iso");
    doctor.reviewSelection();
    doctor.review()->confirm();
    doctor.review()->confirm();
    desk.held.letGo();
    QCOMPARE(desk.trash.asked.size(), 1u);
    QVERIFY(doctor.findings()->selection().paths().empty());
    for (int i = 0; i < 2; ++i) {
      doctor.review()->confirm();
      doctor.review()->close();
      doctor.reviewSelection();
      QCOMPARE(doctor.review()->face().stage, Stage::closed);
    }
    QVERIFY(desk.held.waiting.empty());
    QCOMPARE(desk.trash.asked.size(), 1u);
    // What was moved is not offered again; what is left is.
    doctor.findings()->setSelected("group:oldDownloads", true);
    QCOMPARE(doctor.findings()->selection().items().size(), 1u);
    QCOMPARE(doctor.findings()->selection().items().front().url, desk.home + "/Downloads/older.zip");
  }

  void whatChangedStaysAndIsReported() {
    DiskHome desk;
    DiskDoctor& doctor = desk.scanHome();
    desk.choose("Downloads/old.iso");
    desk.choose("Downloads/older.zip");
    desk.choose("src/web/node_modules");
    doctor.reviewSelection();
    // While the list is looked at.
    desk.fill("Downloads/old.iso", 5);
    std::filesystem::rename(desk.home + "/src/web/node_modules", desk.home + "/src/web/kept");
    std::filesystem::create_directory_symlink(desk.home + "/Documents", desk.home + "/src/web/node_modules");
    doctor.review()->confirm();
    desk.held.letGo();
    QCOMPARE(named(desk.trash.asked), QStringList("older.zip"));
    QVERIFY(desk.exists("Documents/thesis.pdf"));
    QCOMPARE(doctor.review()->face().title, "Moved 2 MB to the Trash");
    QCOMPARE(doctor.review()->face().detail, "2 items were in use or protected and stayed.");
    QCOMPARE(std::ranges::count_if(doctor.review()->items()->rows(), &CleanupRow::hasStayed), 2);
    QCOMPARE(doctor.face().headline, "Mostly Developer junk and Old downloads");
    QCOMPARE(doctor.face().summary, "Moved 2 MB to the Trash. Scan again to see what is left.");
  }

  void whatIsExcludedSinceTheScanStays() {
    DiskHome desk;
    ExcludedFolders excluded;
    auto seams = desk.seams();
    seams.excluded = [&] { return excluded; };
    desk.make(std::move(seams));
    desk.fill(".cache/player/covers", 4);
    DiskDoctor& doctor = desk.scanHome();
    for (const char* item : {".cache", "Downloads/old.iso", "Downloads/older.zip", "src/web/node_modules"})
      desk.choose(item);
    excluded = {desk.home + "/.cache/editor", desk.home + "/Downloads/old.iso",
                desk.home + "/src/web/node_modules/lib"};
    doctor.reviewSelection();
    doctor.review()->confirm();
    desk.held.letGo();
    QCOMPARE(named(desk.trash.asked), QStringList({"player", "older.zip"}));
    QVERIFY(desk.exists("src/web/node_modules/lib"));
    doctor.review()->close();
    doctor.reviewSelection();
    QCOMPARE(doctor.review()->face().stage, Stage::closed);
    QVERIFY2(doctor.face().summary.contains("excluded"), "the press would do nothing");
  }

  void namesAreBytes() {
    DiskHome desk;
    const std::string odd = "caf\xc3\xa9 \xff\n\xe2\x80\xae\xe2\x80\xa8.iso";
    desk.fill("Downloads/" + odd, 2);
    DiskDoctor& doctor = desk.scanHome();
    doctor.findings()->toggleOpen("rule:oldInstallers");
    QString shown;
    const FindingListModel& rows = *doctor.findings();
    for (const FindingRow& row : rows.rows())
      if (pathOf(row.id).ends_with(odd)) shown = row.title;
    QCOMPARE(shown, QString(u8"caf\u00e9 \uFFFD \uFFFD .iso"));
    QCOMPARE(pathOf(desk.idOf("Downloads/" + odd)), desk.home + "/Downloads/" + odd);
    desk.choose("Downloads/" + odd);
    doctor.askAbout(desk.idOf("Downloads/" + odd));
    QCOMPARE(doctor.question()->face().name, shown);
    moveChosen(desk);
    QCOMPARE(desk.trash.asked, std::vector<std::string>{desk.home + "/Downloads/" + odd});
    QVERIFY(!desk.exists("Downloads/" + odd));
  }

  void oneListMovesAtATime() {
    DiskHome desk;
    DiskDoctor& doctor = desk.scanHome();
    desk.choose("Downloads/old.iso");
    doctor.reviewSelection();
    doctor.review()->confirm();
    QVERIFY(desk.cleaner.isTrashing());
    QVERIFY(!desk.cleaner.trash({}, {}));
    doctor.review()->close();
    doctor.reviewSelection();
    QCOMPARE(doctor.review()->face().stage, Stage::moving);
    // Nor is the list scanned away under it.
    doctor.scanAgain();
    QCOMPARE(doctor.phase(), Phase::done);
    desk.held.letGo();
    QVERIFY(!desk.cleaner.isTrashing());
    QCOMPARE(desk.trash.asked.size(), 1u);
    doctor.scanAgain();
    QCOMPARE(doctor.phase(), Phase::scanning);
    QCOMPARE(doctor.review()->face().stage, Stage::closed);
  }

  // Of a cache a part can go although the rest stays.
  void aMoveIsToldToTheTileTheUserAndBuddy() {
    DiskHome desk;
    desk.fill(".cache/pip/http", 3);
    desk.trash.refused.insert(desk.home + "/.cache/pip/wheels");
    desk.trash.reason = StayReason::diskFull;
    QSignalSpy told(&desk.cleaner, &DiskCleaner::finished);
    QCOMPARE(desk.cleaner.freeableText(), "");
    DiskDoctor& doctor = desk.scanHome();
    QCOMPARE(desk.cleaner.freeableText(), "19 MB can go");
    desk.choose(".cache/pip");
    QCOMPARE(doctor.findings()->choice().moveTitle, "Move 5 MB to the Trash");
    moveChosen(desk);
    QCOMPARE(told.takeFirst(),
             QVariantList({"Moved 3 MB to the Trash", "1 item stayed because the disk is full.", true}));
    QCOMPARE(desk.cleaner.freeableText(), "16 MB can go");
    QCOMPARE(doctor.review()->items()->rows().front().size, "2 MB");
    QCOMPARE(doctor.review()->items()->rows().front().note, "The disk is full");
    QCOMPARE(doctor.face().summary, "Moved 3 MB to the Trash. Scan again to see what is left.");
  }

  void aFolderChosenThroughALinkCanBeCleaned() {
    DiskHome desk;
    std::filesystem::create_directory_symlink(desk.home, desk.home + "/src/shortcut");
    DiskDoctor& doctor = desk.doctor();
    doctor.scan(desk.home + "/src/shortcut/Downloads/");
    desk.finishScan();
    QCOMPARE(doctor.sourceTitle(), "Downloads");
    doctor.findings()->setSelected("rule:oldInstallers", true);
    moveChosen(desk);
    QCOMPARE(std::ranges::count_if(doctor.review()->items()->rows(), &CleanupRow::hasMoved), 2);
    doctor.scan(desk.home + "/src/shortcut");
    QCOMPARE(doctor.sourceTitle(), "Home");
  }

  // No promise that the desktop does not keep.
  void theWayBackIsToldAsItIs() {
    DiskHome desk;
    DiskDoctor& doctor = desk.scanHome();
    desk.choose("Downloads/old.iso");
    desk.trash.place.reset();
    doctor.reviewSelection();
    QVERIFY(!doctor.review()->face().canMove);
    doctor.review()->confirm();
    QVERIFY(desk.held.waiting.empty());
    doctor.review()->close();
    desk.trash.place = TrashPlace{.folder = "/mnt/ram/.Trash-1000", .isListed = false};
    doctor.reviewSelection();
    QVERIFY2(doctor.review()->face().detail.contains("take things back from /mnt/ram/.Trash-1000/files"),
             qPrintable(doctor.review()->face().detail));
    doctor.review()->confirm();
    desk.held.letGo();
    QVERIFY2(doctor.review()->face().detail.contains("move things back from /mnt/ram/.Trash-1000/files"),
             qPrintable(doctor.review()->face().detail));
  }

  void withoutAModelTheRulesAnswer() {
    DiskHome desk;
    desk.scanHome();
    DiskQuestion& question = *desk.doctor().question();
    desk.doctor().askAbout(desk.idOf("Downloads/old.iso"));
    QVERIFY(question.face().isOpen);
    QCOMPARE(question.face().question, "Is it safe to delete this?");
    QVERIFY2(question.face().answer.contains("Probably, but look first. It is in old installers in Downloads."),
             qPrintable(question.face().answer));
    QVERIFY(!question.face().isAnswering);
    QVERIFY(!question.face().takesQuestions);
    desk.doctor().askAbout(desk.idOf("Documents"));
    QVERIFY2(question.face().answer.contains("Documents is a main folder of your computer."),
             qPrintable(question.face().answer));
    desk.doctor().askAbout("/nowhere");
    QCOMPARE(question.face().name, "Documents");
    question.close();
    QVERIFY(!question.face().isOpen);
  }

  void theModelWritesTheHeadline() {
    DiskHome desk(true);
    DiskDoctor& doctor = desk.scanHome();
    QCOMPARE(desk.model.asked.size(), 1u);
    const auto& asked = desk.model.asked.front();
    QVERIFY(asked.request.instructions.starts_with("You are Buddy, the helper in Disk Doctor"));
    QVERIFY(asked.request.prompt.starts_with("Write one short sentence, at most 15 words"));
    const QString rules = doctor.face().headline;
    asked.done({});
    QCOMPARE(doctor.face().headline, rules);
    asked.done({"Your caches can go."});
    QCOMPARE(doctor.face().headline, "Your caches can go.");
  }

  void lateAnswersAreDropped() {
    DiskHome desk(true);
    DiskDoctor& doctor = desk.scanHome();
    doctor.askAbout(desk.idOf("Documents"));
    doctor.findings()->toggleOpen("rule:oldInstallers");
    QCOMPARE(desk.model.asked.size(), 3u);
    const auto asked = desk.model.asked;
    doctor.scanAgain();
    desk.finishScan();
    for (const auto& request : asked) {
      QVERIFY(request.stop.stop_requested());
      request.done({"From another time"});
    }
    QCOMPARE(doctor.question()->face().answer, "");
    QVERIFY(!doctor.findings()->isExplained(FindingRule::oldInstallers));
  }

  void rulesAreExplainedOnce() {
    DiskHome desk(true);
    desk.scanHome();
    FindingListModel& findings = *desk.doctor().findings();
    findings.toggleOpen("rule:oldInstallers");
    QCOMPARE(desk.model.asked.size(), 2u);
    QVERIFY(desk.model.asked[1].request.prompt.starts_with("Explain to a non-technical user"));
    desk.model.asked[1].done({"Things you installed long ago."});
    const auto reason = [&] {
      for (const FindingRow& row : findings.rows())
        if (row.kind == FindingRow::Kind::reason) return row.detail;
      return QString();
    };
    QCOMPARE(reason(), "Things you installed long ago.");
    findings.toggleOpen("rule:oldInstallers");
    QCOMPARE(reason(), "");
    findings.toggleOpen("rule:oldInstallers");
    QCOMPARE(reason(), "Things you installed long ago.");
    QCOMPARE(desk.model.asked.size(), 2u);
  }

  void theModelIsToldTheVerdict() {
    DiskHome desk(true);
    desk.scanHome();
    DiskQuestion& question = *desk.doctor().question();
    desk.doctor().askAbout(desk.idOf("Documents"));
    const QString verdict = question.face().answer;
    QVERIFY(question.face().isAnswering);
    QVERIFY(QString::fromStdString(desk.model.asked.back().request.prompt).endsWith(verdict));
    question.ask("What is it?");
    QVERIFY(desk.model.asked[1].stop.stop_requested());
    desk.model.asked[1].done({"An answer to the first question"});
    QCOMPARE(question.face().answer, verdict);
    desk.model.asked.back().done({});
    QVERIFY(!question.face().isAnswering);
    QCOMPARE(question.face().answer, verdict);
    question.ask("And now?");
    desk.model.asked.back().done({"Your own folder."});
    QCOMPARE(question.face().answer, "Your own folder.");
    question.ask("  ");
    QCOMPARE(question.face().question, "And now?");
  }
};

}  // namespace ambrel

QTEST_GUILESS_MAIN(ambrel::DiskDoctorTests)
#include "DiskDoctorTests.moc"
