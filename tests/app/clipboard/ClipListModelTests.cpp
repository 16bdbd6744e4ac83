#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

#include "app/clipboard/ClipListModel.h"
#include "tests/core/clipboard/Clips.h"

namespace ambrel {
namespace {

using namespace clips;

struct List {
  ClipIndex index;
  ClipListModel model{{.index = index,
                       .calendar = Calendar("UTC", "en_US"),
                       .programName = [](const std::string& id) { return QString::fromStdString("<" + id + ">"); },
                       .pictureSize =
                           [](const std::string&) {
                             return PictureSize{1280, 960};
                           },
                       .files = [](const UUID&) -> const ClipFiles* { return nullptr; },
                       .sensitiveAge = []() -> std::optional<Seconds> { return std::nullopt; }}};
  QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::QtTest};
  QSignalSpy reset{&model, &QAbstractItemModel::modelReset};
  QSignalSpy inserted{&model, &QAbstractItemModel::rowsInserted};
  QSignalSpy removed{&model, &QAbstractItemModel::rowsRemoved};
  QSignalSpy moved{&model, &QAbstractItemModel::rowsMoved};
  QSignalSpy changed{&model, &QAbstractItemModel::dataChanged};

  void show(const std::vector<int>& numbers) {
    std::vector<ClipRow> rows;
    for (const int number : numbers) rows.push_back({.id = id(number), .createdAt = at(number)});
    model.show(std::move(rows));
  }
  std::vector<int> shown() const {
    std::vector<ClipItem> items;
    for (const ClipRow& row : model.rows()) items.push_back(text(row.id.bytes[14] << 8 | row.id.bytes[15], ""));
    return numbers(items);
  }
  QVariant data(int row, int role) const { return model.index(row).data(role); }
};

}  // namespace

class ClipListModelTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void aNewClipIsOneInsertedRow() {
    List list;
    list.show({3, 2, 1});
    list.inserted.clear();
    list.show({4, 3, 2, 1});
    QCOMPARE(list.inserted.count(), 1);
    QCOMPARE(list.removed.count() + list.moved.count() + list.changed.count() + list.reset.count(), 0);
    QCOMPARE(list.shown(), (std::vector<int>{4, 3, 2, 1}));
    QCOMPARE(list.model.rowOf(list.model.idAt(3)), 3);
  }

  void aSecondCopyIsOneMovedRow() {
    List list;
    list.show({3, 2, 1});
    list.inserted.clear();
    std::vector<ClipRow> rows = list.model.rows();
    std::ranges::rotate(rows, rows.begin() + 2);
    rows[0].createdAt = at(99);
    list.model.show(std::move(rows));
    QCOMPARE(list.moved.count(), 1);
    QCOMPARE(list.changed.count(), 1);
    QCOMPARE(list.inserted.count() + list.removed.count() + list.reset.count(), 0);
    QCOMPARE(list.shown(), (std::vector<int>{1, 3, 2}));
  }

  void aSearchInManyClipsTakesTwoStepsAndNoReset() {
    List list;
    std::vector<int> all, some;
    for (int i = 10'000; i > 0; --i) {
      all.push_back(i);
      if (i % 7 == 0) some.push_back(i);
    }
    list.show(all);
    list.inserted.clear();
    list.show(some);
    QCOMPARE(list.shown(), some);
    QVERIFY(list.inserted.count() + list.removed.count() <= 2);
    list.show(all);
    QCOMPARE(list.shown(), all);
    QCOMPARE(list.reset.count(), 0);
  }

  void onlyTheChangedRowIsAnnounced() {
    List list;
    list.show({3, 2, 1});
    std::vector<ClipRow> rows = list.model.rows();
    rows[1].isPinned = true;
    rows[1].pinNumber = 1;
    list.model.show(std::move(rows));
    QCOMPARE(list.changed.count(), 1);
    QCOMPARE(list.changed.first().first().toModelIndex().row(), 1);
    QCOMPARE(list.data(1, ClipListModel::PinNumberRole).toInt(), 1);
  }

  void cardsAreWordedAfterTheirKind() {
    List list;
    ClipItem link = text(2, "https://www.example.org/tides?month=11");
    link.kind = ClipKind::link;
    ClipItem color = text(3, "#2F7F86");
    color.kind = ClipKind::color;
    ClipItem file = text(4, "/a/plan.pdf\n/a/b.ods\n/a/samples\n/a/d\n/a/e");
    file.kind = ClipKind::file;
    ClipItem code = text(5, "  for x in y:\n    return x\n");
    std::vector<ClipRow> rows;
    for (const ClipItem& item : {text(1, "Meeting"), link, color, file, code, image(6, "a.png")}) {
      list.index.of(item);
      rows.push_back({.id = item.id,
                      .kind = item.kind,
                      .createdAt = at(0),
                      .imageFileName = item.imageFileName.value_or(""),
                      .source = "mail"});
    }
    list.model.show(std::move(rows));
    list.model.setNow(at(61));
    const struct {
      const char *look, *kind, *title, *detail, *foot;
    } expected[] = {{"text", "Text", "Meeting", "", "<mail>"},
                    {"link", "Link", "example.org", "/tides?month=11", "<mail>"},
                    {"color", "Color", "#2F7F86", "47 127 134", "<mail>"},
                    {"files", "Files", "", "", "<mail>"},
                    {"code", "Code", "for x in y:\n  return x", "", "<mail>"},
                    {"image", "Image", "", "", "1280\u2009×\u2009960"}};
    for (int row = 0; row < 6; ++row) {
      QCOMPARE(list.data(row, ClipListModel::LookRole).toString(), QString(expected[row].look));
      QCOMPARE(list.data(row, ClipListModel::KindRole).toString(), QString(expected[row].kind));
      QCOMPARE(list.data(row, ClipListModel::TitleRole).toString(), QString(expected[row].title));
      QCOMPARE(list.data(row, ClipListModel::DetailRole).toString(), QString(expected[row].detail));
      QCOMPARE(list.data(row, ClipListModel::FootRole).toString(), QString::fromUtf8(expected[row].foot));
      QCOMPARE(list.data(row, ClipListModel::AgeRole).toString(), QStringLiteral("1 min"));
    }
    QCOMPARE(list.data(2, ClipListModel::ColorRole).value<QColor>(), QColor(0x2F, 0x7F, 0x86));
    QCOMPARE(list.data(3, ClipListModel::FilesRole).toList().size(), 3);
    QCOMPARE(list.data(3, ClipListModel::MoreFilesRole).toString(), QStringLiteral("and 2 more"));
    QCOMPARE(list.data(3, ClipListModel::SpokenRole).toString(),
             QStringLiteral("Files, plan.pdf, b.ods, samples, 1 min"));
  }
};

}  // namespace ambrel

QTEST_GUILESS_MAIN(ambrel::ClipListModelTests)
#include "ClipListModelTests.moc"
