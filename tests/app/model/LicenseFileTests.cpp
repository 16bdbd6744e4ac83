#include <QTest>

#include "app/model/LicenseFile.h"
#include "tests/SignedLicence.h"
#include "tests/TemporaryFolder.h"

namespace ambrel {
class LicenseFileTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
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
};

}  // namespace ambrel

QTEST_GUILESS_MAIN(ambrel::LicenseFileTests)
#include "LicenseFileTests.moc"
