#include <QTest>
#include <algorithm>
#include <random>

#include "app/base/RowChanges.h"

namespace ambrel {
namespace {

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

}  // namespace
}  // namespace ambrel

Q_DECLARE_METATYPE(std::vector<int>)

namespace ambrel {

class RowChangesTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void commonChangesTakeFewSteps_data() {
    QTest::addColumn<Keys>("before");
    QTest::addColumn<Keys>("after");
    QTest::addColumn<int>("steps");
    QTest::newRow("nothing") << Keys{1, 2} << Keys{1, 2} << 0;
    QTest::newRow("first of all") << Keys{} << Keys{1, 2} << 1;
    QTest::newRow("last of all") << Keys{1, 2} << Keys{} << 1;
    QTest::newRow("new on top") << Keys{1, 2, 3} << Keys{9, 1, 2, 3} << 1;
    QTest::newRow("new on top, the last goes") << Keys{1, 2, 3} << Keys{9, 1, 2} << 2;
    QTest::newRow("one goes") << Keys{1, 2, 3} << Keys{1, 3} << 1;
    QTest::newRow("a run goes") << Keys{1, 2, 3, 4} << Keys{1, 4} << 1;
    QTest::newRow("one comes to the top") << Keys{1, 2, 3, 4} << Keys{4, 1, 2, 3} << 1;
    QTest::newRow("one goes to the end") << Keys{1, 2, 3, 4} << Keys{2, 3, 4, 1} << 1;
    QTest::newRow("two change places") << Keys{1, 2, 3} << Keys{3, 2, 1} << 2;
    QTest::newRow("nothing in common") << Keys{1, 2, 3} << Keys{4, 5} << 2;
    QTest::newRow("one comes to the top, one goes") << Keys{1, 2, 3, 4, 5} << Keys{3, 1, 2, 4} << 2;
  }

  void commonChangesTakeFewSteps() {
    QFETCH(Keys, before);
    QFETCH(Keys, after);
    const auto changes = rowChanges<int>(before, after);
    QCOMPARE(carriedOut(before, after, changes), after);
    QFETCH(int, steps);
    QCOMPARE(static_cast<int>(changes.size()), steps);
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
};

}  // namespace ambrel

QTEST_APPLESS_MAIN(ambrel::RowChangesTests)
#include "RowChangesTests.moc"
