#include <QSignalSpy>
#include <QTest>

#include "app/time/ClockModel.h"

namespace ambrel {
namespace {

Instant at(const char* text) { return parseISO8601(text).value(); }

}  // namespace

class ClockModelTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void showsTheUsersOwnForms();
  void speaksUpOnlyWhenTheTextsChange();
  void theNextTickIsTheTurnOfTheMinute();
};

void ClockModelTests::showsTheUsersOwnForms() {
  const ClockFace face = clockFace(Calendar("America/New_York", "en_US"), at("2026-11-21T05:07:30Z"));
  QCOMPARE(face.time, QStringLiteral("12:07\u202fAM"));
  QCOMPARE(face.shortDate, QStringLiteral("Sat, Nov 21"));
  QCOMPARE(face.month, QStringLiteral("November 2026"));
  QCOMPARE(face.fullDate, QStringLiteral("Saturday, November 21, 2026"));
  const ClockFace german = clockFace(Calendar("Europe/Berlin", "de_DE"), at("2026-11-21T23:30:00Z"));
  QCOMPARE(german.time, QStringLiteral("00:30"));
  QCOMPARE(german.weekday, QStringLiteral("Sonntag"));
}

void ClockModelTests::speaksUpOnlyWhenTheTextsChange() {
  ClockModel clock(Calendar("Europe/Berlin", "de_DE"));
  QSignalSpy changed(&clock, &ClockModel::changed);
  clock.tick(at("2026-11-21T09:00:00Z"));
  clock.tick(at("2026-11-21T09:00:59.9Z"));
  QCOMPARE(changed.count(), 1);
  clock.tick(at("2026-11-21T09:01:00Z"));
  QCOMPARE(changed.count(), 2);
  // The same time of another day: the date alone differs.
  clock.tick(at("2026-11-22T09:01:00Z"));
  QCOMPARE(changed.count(), 3);
  QCOMPARE(clock.face().day, QStringLiteral("22"));
}

void ClockModelTests::theNextTickIsTheTurnOfTheMinute() {
  QCOMPARE(iso8601(ClockModel::nextTick(at("2026-11-21T09:00:00Z"))), std::string("2026-11-21T09:01:00Z"));
  QCOMPARE(iso8601(ClockModel::nextTick(at("2026-11-21T09:00:59.999999Z"))), std::string("2026-11-21T09:01:00Z"));
  QCOMPARE(iso8601(ClockModel::nextTick(at("1969-12-31T23:59:30Z"))), std::string("1970-01-01T00:00:00Z"));
}

}  // namespace ambrel

QTEST_GUILESS_MAIN(ambrel::ClockModelTests)
#include "ClockModelTests.moc"
