#include <QAbstractItemModelTester>
#include <QCoreApplication>
#include <QSignalSpy>
#include <QTest>
#include <algorithm>
#include <cstdlib>
#include <memory>
#include <random>
#ifdef __GLIBC__
#include <malloc.h>
#endif

#include "app/base/DueTimer.h"
#include "app/base/GadgetListModel.h"
#include "app/base/Heap.h"
#include "app/base/PatientWrite.h"
#include "app/base/Presentation.h"
#include "app/base/RowChanges.h"
#include "core/base/Files.h"
#include "tests/Time.h"
#include "tests/fakes/FakeClock.h"

namespace ambrel {
namespace {

struct Row {
  int key;
  int value;
  friend bool operator==(const Row&, const Row&) = default;
};

class Rows : public RecordListModel<Row, int> {
 public:
  using RecordListModel::setRows;
  QVariant data(const QModelIndex& index, int role) const override {
    const Row* found = row(index);
    return found && role == Qt::DisplayRole ? QVariant(found->value) : QVariant();
  }

 protected:
  int keyOf(const Row& row) const override {
    ++lookups;
    return row.key;
  }

 public:
  mutable std::size_t lookups = 0;
};

struct Drive {
  Q_GADGET
  Q_PROPERTY(QString rowId MEMBER id FINAL)
  Q_PROPERTY(QString size READ size FINAL)

 public:
  QString id;
  int bytes = 0;
  QString size() const { return QStringLiteral("%1 B").arg(bytes); }
  bool operator==(const Drive&) const = default;
};

std::vector<Row> keys(std::initializer_list<int> list) {
  std::vector<Row> rows;
  for (const int key : list) rows.push_back({key, key});
  return rows;
}

using Keys = std::vector<int>;

// The list that the steps lead to; new rows are taken from `after`.
Keys carriedOut(Keys rows, const Keys& after, const std::vector<RowChange>& steps) {
  for (const RowChange& step : steps) {
    const auto first = rows.begin() + step.first;
    switch (step.kind) {
      case RowChange::Kind::remove:
        rows.erase(first, rows.begin() + step.last + 1);
        break;
      case RowChange::Kind::insert:
        rows.insert(first, after.begin() + step.first, after.begin() + step.last + 1);
        break;
      case RowChange::Kind::move: {
        const int key = *first;
        rows.erase(first);
        rows.insert(rows.begin() + step.last, key);
        break;
      }
    }
  }
  return rows;
}

Keys upTo(int count) {
  Keys keys;
  for (int i = 0; i < count; ++i) keys.push_back(i);
  return keys;
}

// Writes down what it is told.
class Listener : public TimedModel {
 public:
  std::optional<Instant> due() const override { return next; }
  void tick(Instant now) override {
    told << QStringLiteral("tick");
    if (next && *next <= now) next.reset();
    announceDue();
  }
  void slept(Seconds span, Instant) override { told << QStringLiteral("slept %1").arg(span.count()); }
  void clockMoved(Seconds by, Instant) override { told << QStringLiteral("moved %1").arg(by.count()); }
  void waitFor(std::optional<Instant> time) {
    next = time;
    announceDue();
  }

  std::optional<Instant> next;
  QStringList told;
};

void settle() { QCoreApplication::processEvents(); }

// Bytes of blocks that were asked of the system one by one; 0 where the heap does not tell.
std::size_t bytesByThemselves() {
#ifdef __GLIBC__
  return mallinfo2().hblkhd;
#else
  return 0;
#endif
}

}  // namespace

class BaseTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void aWriteIsTriedAgainAndItsFailureToldOnce() {
    int failures = 3;
    const auto work = [&] {
      if (failures-- > 0) throw FileError("cannot write", "/x", ENOSPC);
    };
    PatientWrite write(QStringLiteral("Not saved"), "", work, std::chrono::milliseconds(1));
    QSignalSpy told(&write, &PatientWrite::problemFound);
    QTest::ignoreMessage(QtWarningMsg, "Ambrel: cannot write /x: No space left on device");
    QVERIFY(!write.now());
    QVERIFY2(told.empty(), "nobody may listen yet");
    QTRY_COMPARE(write.problem(), QString());
    QCOMPARE(failures, -1);
    QCOMPARE(told, (QList<QVariantList>{{"Not saved", "No space left on device. It is tried again."}}));
  }

  void everyChangeOfOrderEndsInTheNewList() {
    const std::vector<std::vector<Row>> lists{
        {},           keys({1, 2, 3}), keys({3, 1, 2}),    keys({2}),       keys({5, 2, 4}), keys({4, 5}),
        keys({1, 1}), keys({1, 7, 1}), keys({7, 1, 1, 7}), keys({6, 8, 9}), keys({9, 8, 6}), {},
    };
    for (const auto& from : lists)
      for (const auto& to : lists) {
        Rows model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        model.setRows(from);
        model.setRows(to);
        QVERIFY(model.rows() == to);
      }
  }

  void aChangedRowIsAnnouncedAloneAndNeverByAReset() {
    Rows model;
    model.setRows(keys({1, 2, 3}));
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged), reset(&model, &QAbstractItemModel::modelReset);
    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted), removed(&model, &QAbstractItemModel::rowsRemoved);
    QVERIFY(model.setRows({{1, 1}, {2, 20}, {3, 3}}));
    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed.at(0).at(0).value<QModelIndex>().row(), 1);
    QVERIFY(!model.setRows({{1, 1}, {2, 20}, {3, 3}}));
    QVERIFY(model.setRows({{4, 4}, {1, 1}, {3, 3}}));
    QCOMPARE(changed.size(), 1);
    QCOMPARE(inserted.size(), 1);
    QCOMPARE(removed.size(), 1);
    QCOMPARE(reset.size(), 0);
  }

  void thousandsOfRowsComeAtTheCostOfTheirNumber() {
    constexpr int count = 8000;
    std::vector<Row> all, reversed;
    for (int key = 0; key < count; ++key) all.push_back({key, key});
    reversed.assign(all.rbegin(), all.rend());
    Rows model;
    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted), changed(&model, &QAbstractItemModel::dataChanged);
    model.setRows(all);
    QCOMPARE(inserted.size(), 1);
    for (Row& row : all) row.value = -1;
    model.setRows(all);
    QCOMPARE(changed.size(), 1);
    model.setRows(reversed);
    QVERIFY(model.rows() == reversed);
    QVERIFY(model.lookups <= 6 * count);
  }

  void aGadgetsPropertiesAreTheRoles() {
    GadgetListModel<Drive> drives;
    QAbstractItemModelTester tester(&drives, QAbstractItemModelTester::FailureReportingMode::QtTest);
    QSignalSpy counted(&drives, &RowList::countChanged);
    drives.setRows({{"b", 2}, {"a", 1}});
    QCOMPARE(counted.size(), 1);
    const QHash<int, QByteArray> names = drives.roleNames();
    QCOMPARE(names.size(), 3);
    QCOMPARE(drives.data(drives.index(0), names.key("rowId")), QVariant("b"));
    QCOMPARE(drives.data(drives.index(1), drives.role("size")), QVariant("1 B"));
    QVERIFY(!drives.data(drives.index(0), Qt::DisplayRole).isValid());
    QVERIFY(!drives.data(drives.index(0), Qt::UserRole + 3).isValid());

    drives.setRows({{"a", 1}, {"b", 3}});
    QCOMPARE(counted.size(), 1);
    QCOMPARE(drives.data(drives.index(1), drives.role("size")), QVariant("3 B"));
  }

  void commonChangesTakeFewSteps() {
    const std::tuple<const char*, Keys, Keys, std::size_t> rows[] = {
        {"nothing", {1, 2}, {1, 2}, 0},
        {"first of all", {}, {1, 2}, 1},
        {"last of all", {1, 2}, {}, 1},
        {"new on top", {1, 2, 3}, {9, 1, 2, 3}, 1},
        {"new on top, the last goes", {1, 2, 3}, {9, 1, 2}, 2},
        {"one goes", {1, 2, 3}, {1, 3}, 1},
        {"a run goes", {1, 2, 3, 4}, {1, 4}, 1},
        {"one comes to the top", {1, 2, 3, 4}, {4, 1, 2, 3}, 1},
        {"one goes to the end", {1, 2, 3, 4}, {2, 3, 4, 1}, 1},
        {"two change places", {1, 2, 3}, {3, 2, 1}, 2},
        {"nothing in common", {1, 2, 3}, {4, 5}, 2},
        {"one comes to the top, one goes", {1, 2, 3, 4, 5}, {3, 1, 2, 4}, 2}};
    for (const auto& [what, before, after, steps] : rows) {
      const auto changes = rowChanges<int>(before, after);
      QVERIFY2(carriedOut(before, after, changes) == after && changes.size() == steps, what);
    }
  }

  void anyListBecomesAnyOther() {
    std::mt19937 random(7);
    for (int round = 0; round < 3000; ++round) {
      Keys all = upTo(12);
      std::ranges::shuffle(all, random);
      const Keys before(all.begin(), all.begin() + static_cast<int>(random() % 13));
      std::ranges::shuffle(all, random);
      const Keys after(all.begin(), all.begin() + static_cast<int>(random() % 13));
      for (const std::size_t most : {0u, 2u, 32u})
        QCOMPARE(carriedOut(before, after, rowChanges<int>(before, after, most)), after);
    }
  }

  void whatWouldTakeManyStepsIsExchangedBetweenTheEnds() {
    const Keys before = upTo(10'000);
    Keys after;
    for (const int key : before)
      if (key < 10 || key > 9'990 || key % 3 == 0) after.push_back(key);
    const auto steps = rowChanges<int>(before, after);
    QCOMPARE(steps.size(), std::size_t{2});
    QCOMPARE(steps[0].first, 10);
    QCOMPARE(steps[0].last, 9'989);
    QCOMPARE(carriedOut(before, after, steps), after);
  }

  void theTimerWaitsForTheFirstOfAll() {
    FakeClock clock(*parseISO8601("2026-11-21T09:00:00Z"));
    DueTimer timer(clock);
    Listener one, two;
    timer.add(one);
    timer.add(two);
    settle();
    QVERIFY(!clock.wakeTime);
    one.waitFor(clock.now() + minutes(10));
    two.waitFor(clock.now() + minutes(5));
    settle();
    QVERIFY(clock.wakeTime == clock.now() + minutes(5));
    clock.pass(minutes(5));
    clock.ring();
    settle();
    QCOMPARE(two.told, QStringList{"tick"});
    QVERIFY(one.told.isEmpty());
    QVERIFY(clock.wakeTime == clock.now() + minutes(5));
    one.waitFor({});
    settle();
    QVERIFY(!clock.wakeTime);
  }

  void theTimerTellsOfSleepBeforeAnythingFallsDue() {
    FakeClock clock(*parseISO8601("2026-11-21T09:00:00Z"));
    DueTimer timer(clock);
    Listener listener;
    timer.add(listener);
    listener.waitFor(clock.now() + minutes(10));
    settle();
    clock.pass(minutes(1));
    clock.sleep(hours(8));
    clock.ring();
    QCOMPARE(listener.told, (QStringList{"slept 28800", "tick"}));
    clock.sleep(Seconds(1));
    clock.ring();
    QCOMPARE(listener.told.size(), 2);
  }

  void theTimerTellsThatTheClockWasSet() {
    FakeClock clock(*parseISO8601("2026-11-21T09:00:00Z"));
    DueTimer timer(clock);
    Listener listener;
    timer.add(listener);
    settle();
    clock.pass(minutes(3));
    clock.set(clock.now() - hours(1));
    clock.ring();
    QCOMPARE(listener.told, QStringList{"moved -3600"});
    clock.pass(minutes(3));
    clock.set(clock.now() + std::chrono::milliseconds(900));
    clock.ring();
    QCOMPARE(listener.told.size(), 1);
  }

  // The states of a panel are core's, and its windows have tests of their own.
  void aStepMayOutliveItsPanel() {
    std::function<void()> step;
    auto presentation = std::make_unique<Presentation>([&](Seconds, auto next) { step = next; });
    presentation->show();
    presentation.reset();
    step();
  }

  void aLargeBlockGoesBackHoweverOftenThereWasOne() {
    constexpr std::size_t large = 8 << 20;
    void* volatile probe = std::malloc(2 * large);
    const bool tells = bytesByThemselves() >= 2 * large;
    std::free(probe);
    if (!tells) QSKIP("this heap does not tell");
    returnLargeBlocks();
    for (int i = 0; i < 3; ++i) {
      const std::size_t before = bytesByThemselves();
      void* volatile block = std::malloc(large);
      QVERIFY(bytesByThemselves() >= before + large);
      std::free(block);
      QCOMPARE(bytesByThemselves(), before);
    }
  }
};

}  // namespace ambrel

QTEST_GUILESS_MAIN(ambrel::BaseTests)
#include "BaseTests.moc"
