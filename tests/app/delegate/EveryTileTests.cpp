#include <QApplication>
#include <QTest>

#include "app/base/TileSources.h"
#include "core/widgets.h"
#include "tests/app/delegate/Program.h"
#include "tests/app/kit/Looks.h"

namespace ambrel {
namespace {

// What a tile says to the eye: its texts, painted or typed, its figures, and the poses of a character.
QStringList saidBy(QQuickItem* tile) {
  QStringList texts;
  visitShown(tile, [&](QQuickItem* item) {
    for (const char* name : {"text", "figure", "pose"})
      if (const QString text = item->property(name).toString(); !text.isEmpty()) texts << text;
  });
  return texts;
}

// The tile that a slot shows, or what is in its place for a widget that this version has no tile for.
QQuickItem* shownIn(QQuickItem* slot, const char* type, const char* property) {
  for (QQuickItem* child : slot->childItems())
    if (child->inherits(type)) return child->property(property).value<QQuickItem*>();
  return nullptr;
}

}  // namespace

// Every widget of the catalogue, as the running program makes it.
class EveryTileTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void everyWidgetSaysSomethingInEverySize_data() {
    QTest::addColumn<QString>("widget");
    for (const DockWidget widget : allCases<DockWidget>()) {
      const QString id = QString::fromUtf8(nameOf(widget).data(), static_cast<int>(nameOf(widget).size()));
      QTest::newRow(qPrintable(id)) << id;
    }
  }

  void everyWidgetSaysSomethingInEverySize() {
    QFETCH(QString, widget);
    Program program;
    program.delegate->launch();
    program.putOnBar({widget.toStdString()});
    const auto found = program.slotsOfBar();
    QCOMPARE(found.size(), std::size_t(1));
    QQuickItem* tile = shownIn(found.front(), "ambrel::TileHost", "tile");
    QQuickItem* placeholder = shownIn(found.front(), "QQuickLoader", "item");
    QVERIFY2((tile != nullptr) == tileSources().contains(widget), "a tile with a file must be made, and no other");
    QVERIFY((tile == nullptr) == (placeholder != nullptr));
    if (!tile) tile = placeholder;
    QVERIFY2(!tile->property("label").toString().isEmpty(), "it has no accessible name");
    QVERIFY2(tile->activeFocusOnTab(), "the keyboard does not reach it");
    for (const auto& [span, width] :
         std::initializer_list<std::pair<int, qreal>>{{0, 64}, {1, 112}, {2, 176}, {3, 240}}) {
      found.front()->setWidth(width);
      tile->setProperty("span", span);
      const QStringList texts = saidBy(tile);
      QVERIFY2(!texts.isEmpty(), qPrintable(QStringLiteral("nothing is said at a width of %1").arg(width)));
      visitShown(tile, [&](QQuickItem* item) {
        if (!item->inherits("QQuickText") || item->property("text").toString().isEmpty()) return;
        const QRectF box = item->mapRectToItem(tile, QRectF(0, 0, item->width(), item->height()));
        QVERIFY2(box.left() >= -0.5 && box.right() <= width + 0.5,
                 qPrintable(
                     QStringLiteral("\"%1\" leaves the tile of %2").arg(item->property("text").toString()).arg(width)));
      });
    }
    if (tile == placeholder) return;
    // In the gallery it is an example of itself.
    QQuickItem* host = tile->parentItem();
    host->setProperty("isSample", true);
    tile = host->property("tile").value<QQuickItem*>();
    QVERIFY(tile);
    QVERIFY(!saidBy(tile).isEmpty());
    QCOMPARE(tile->property("problem").toString(), QString());
  }
};

}  // namespace ambrel

QTEST_MAIN(ambrel::EveryTileTests)
#include "EveryTileTests.moc"
