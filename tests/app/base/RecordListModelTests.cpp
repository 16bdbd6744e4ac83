#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

#include "app/base/GadgetListModel.h"

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

}  // namespace

class RecordListModelTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
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
};

}  // namespace ambrel

QTEST_APPLESS_MAIN(ambrel::RecordListModelTests)
#include "RecordListModelTests.moc"
