#include <QTest>

#include "platform/linux/SystemTimeZone.h"
#include "platform/linux/TimerfdClock.h"
#include "tests/TemporaryFolder.h"

namespace ambrel {
namespace {

using std::chrono::milliseconds;

namespace fs = std::filesystem;

// As timedatectl does it: a link beside the old one takes its place.
void replaceLink(const fs::path& link, const fs::path& target) {
  fs::create_directories(link.parent_path());
  const fs::path beside = link.string() + ".new";
  fs::create_symlink(target, beside);
  fs::rename(beside, link);
}

}  // namespace

class ClockTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void wakesAtItsTimeAndOnce() {
    TimerfdClock clock;
    const Instant wanted = clock.read().now + milliseconds(40);
    std::vector<Instant> woken;
    clock.wakeAt(wanted, [&] { woken.push_back(clock.read().now); });
    QVERIFY(QTest::qWaitFor([&] { return !woken.empty(); }, 15000));
    QVERIFY(woken.front() >= wanted);
    bool hasPassed = false;
    TimerfdClock fence;
    fence.wakeAt(clock.read().now + milliseconds(60), [&] { hasPassed = true; });
    QVERIFY(QTest::qWaitFor([&] { return hasPassed; }, 15000));
    QCOMPARE(woken.size(), 1u);
  }

  void wakesAtOnceForATimeThatHasPassed() {
    TimerfdClock clock;
    for (const Instant past : {clock.read().now - std::chrono::hours(1), Instant{}, Instant{} - milliseconds(1500)}) {
      int times = 0;
      clock.wakeAt(past, [&] { ++times; });
      QVERIFY(QTest::qWaitFor([&] { return times == 1; }, 15000));
    }
  }

  void aLaterWishReplacesTheEarlier() {
    TimerfdClock clock;
    QStringList heard;
    clock.wakeAt(clock.read().now - milliseconds(1), [&] { heard << QStringLiteral("first"); });
    clock.wakeAt(clock.read().now + milliseconds(20), [&] { heard << QStringLiteral("second"); });
    QVERIFY(QTest::qWaitFor([&] { return !heard.isEmpty(); }, 15000));
    QCOMPARE(heard, QStringList{"second"});
    clock.wakeAt({}, [&] { heard << QStringLiteral("third"); });
    TimerfdClock fence;
    bool hasPassed = false;
    fence.wakeAt(clock.read().now + milliseconds(40), [&] { hasPassed = true; });
    QVERIFY(QTest::qWaitFor([&] { return hasPassed; }, 15000));
    QCOMPARE(heard.size(), 1);
  }

  // The link itself, and one that it leads over.
  void aReplacedLinkIsNoticed() {
    for (const char* path : {"etc/localtime", "writable/zone"}) {
      TemporaryFolder folder;
      const fs::path link = folder / "etc/localtime", over = folder / path;
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
  }
};

}  // namespace ambrel

QTEST_GUILESS_MAIN(ambrel::ClockTests)
#include "ClockTests.moc"
