#include <QTest>

#include "app/model/LicenseFile.h"
#include "core/base/JSON.h"
#include "tests/TemporaryFolder.h"

namespace ambrel {
namespace {

// Made by script/sign-licence for "Ada", until 2030.
constexpr const char* key = "4YjkuPV1XrL+g9xcmOOEDcs4PUJ/zFMLbIkfdV58SyU=";
const JSON licence{
    {"key", key},
    {"licence",
     "eyJwcm9kdWN0IjogInRpbGViYXkiLCAiaG9sZGVyIjogIkFkYSIsICJudW1iZXIiOiAiNWM3ZTc4YzgiLCAiZXhw"
     "aXJlcyI6ICIyMDMwLTAxLTAxVDAwOjAwOjAwWiJ9"},
    {"signature", "uzk7ubNGAIurVDOalWKaNLQx9Au5JqagixguIMStAqAsfQDLpAAd3czh4W02Rt62wpuuWPGGSN1nb2FJ7O6qAg=="}};

}  // namespace

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
        {.file = folder / "data/licence.json", .key = key, .calendar = calendar, .now = [&] { return now; }}, gate);
    QVERIFY(!gate.isPro());
    QVERIFY(!file.due());
    JSON changed = licence;
    changed["signature"] = "AAAA";
    file.install(folder.write("changed.json", changed.dump()));
    QCOMPARE(file.problem(), "The licence was changed after it was signed");
    QVERIFY(!gate.isPro() && !std::filesystem::exists(folder / "data"));

    file.install(folder.write("bought.json", licence.dump()));
    QCOMPARE(file.problem(), "");
    QCOMPARE(file.text(), "Licensed to Ada until Jan 1, 2030");
    QVERIFY(gate.isPro());
    QCOMPARE(opened, 1);

    now = file.due().value();
    file.tick(now);
    QVERIFY(!gate.isPro());
    QCOMPARE(file.text(), "The licence of Ada ended on Jan 1, 2030");

    // Found at the next start.
    now = parseISO8601("2029-01-01T00:00:00Z").value();
    LicenseManager later;
    const LicenseFile again(
        {.file = folder / "data/licence.json", .key = key, .calendar = calendar, .now = [&] { return now; }}, later);
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
