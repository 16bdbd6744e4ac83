#include <QTest>

#include "platform/linux/SystemTimeZone.h"
#include "tests/TemporaryFolder.h"

namespace ambrel {
namespace {

namespace fs = std::filesystem;

// As timedatectl does it: a link beside the old one takes its place.
void replaceLink(const fs::path& link, const fs::path& target) {
  fs::create_directories(link.parent_path());
  const fs::path beside = link.string() + ".new";
  fs::create_symlink(target, beside);
  fs::rename(beside, link);
}

}  // namespace

class SystemTimeZoneTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void aReplacedLinkIsNoticed_data();
  void aReplacedLinkIsNoticed();
};

void SystemTimeZoneTests::aReplacedLinkIsNoticed_data() {
  QTest::addColumn<QString>("path");
  QTest::newRow("the link itself") << QStringLiteral("etc/localtime");
  QTest::newRow("a link that it leads over") << QStringLiteral("writable/zone");
}

void SystemTimeZoneTests::aReplacedLinkIsNoticed() {
  QFETCH(QString, path);
  TemporaryFolder folder;
  const fs::path link = folder / "etc/localtime", over = folder / path.toStdString();
  replaceLink(over, "../usr/share/zoneinfo/Europe/Berlin");
  if (over != link) replaceLink(link, "../writable/zone");
  SystemTimeZone zone(link, QDBusConnection(QStringLiteral("none")));
  QCOMPARE(zone.name(), std::string("Europe/Berlin"));
  int changes = 0;
  zone.setChangeHandler([&] { ++changes; });
  // The same zone under another spelling, and another file of the folder, are no change.
  replaceLink(over, "/usr/share/zoneinfo/posix/Europe/Berlin");
  replaceLink(over.parent_path() / "other", "/usr/share/zoneinfo/Asia/Tokyo");
  replaceLink(over, "../usr/share/zoneinfo/America/Argentina/Ushuaia");
  QVERIFY(QTest::qWaitFor([&] { return changes > 0; }, 15000));
  QCOMPARE(changes, 1);
  QCOMPARE(zone.name(), std::string("America/Argentina/Ushuaia"));
  replaceLink(over, "../usr/share/zoneinfo/UTC");
  QVERIFY(QTest::qWaitFor([&] { return changes == 2; }, 15000));
}

}  // namespace ambrel

QTEST_GUILESS_MAIN(ambrel::SystemTimeZoneTests)
#include "SystemTimeZoneTests.moc"
