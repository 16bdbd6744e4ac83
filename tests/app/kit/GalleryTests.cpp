#include <QTest>

#include "tests/app/kit/Looks.h"
#include "tests/app/kit/Scene.h"

namespace ambrel {

// Looks at pictures of every component, in both schemes and with larger type.
class GalleryTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void pages_data();
  void pages();
  void groundsAreTheTokens_data();
  void groundsAreTheTokens();
  void tilesHaveTheirSizes_data();
  void tilesHaveTheirSizes();
  void schemesDiffer();

  void longTextEndsInAnEllipsis();
};

void GalleryTests::pages_data() {
  QTest::addColumn<QString>("page");
  QTest::addColumn<bool>("dark");
  QTest::addColumn<qreal>("textScale");
  for (const char* page : {"Gallery", "TileGallery"}) {
    for (const bool dark : {true, false}) {
      for (const qreal scale : {1.0, 1.3}) {
        QTest::addRow("%s, %s, text %g", page, dark ? "dark" : "light", scale) << QString(page) << dark << scale;
      }
    }
  }
}

void GalleryTests::pages() {
  QFETCH(QString, page);
  QFETCH(bool, dark);
  QFETCH(qreal, textScale);
  Scene scene;
  scene.theme().setTextScale(textScale);
  scene.theme().setChoice(dark ? Theme::Choice::Dark : Theme::Choice::Light);
  scene.theme().setAlwaysReducesMotion(true);
  QVERIFY(scene.loadFile("qrc:/qt/qml/Ambrel/Gallery/" + page + ".qml"));
  QCOMPARE(faultsOf(scene), QStringList());
  int named = 0;
  visitShown(scene.root(), [&](QQuickItem* item) { named += !item->objectName().isEmpty(); });
  QVERIFY(named > 10);
  QCOMPARE(scene.warnings().take(), QStringList());
}

static void schemes() {
  QTest::addColumn<Theme::Choice>("choice");
  QTest::newRow("dark") << Theme::Choice::Dark;
  QTest::newRow("light") << Theme::Choice::Light;
}

void GalleryTests::groundsAreTheTokens_data() { schemes(); }

void GalleryTests::groundsAreTheTokens() {
  // Where in a component to look, and the token that is to be there.
  struct Probe {
    const char* name;
    QPoint at;
    const char* token;
  };
  constexpr Probe probes[] = {
      {"Primary button Normal", {6, 16}, "accent"},
      {"Primary button Hover", {6, 16}, "accentHover"},
      {"Primary button Pressed", {6, 16}, "accentPressed"},
      {"Primary button Off", {6, 16}, "greySoft"},
      {"Secondary button Normal", {6, 16}, "card"},
      {"Secondary button Hover", {6, 16}, "cardHover"},
      {"Quiet button Normal", {6, 16}, "panel"},
      {"Quiet button Hover", {6, 16}, "card"},
      {"chosen chip", {6, 14}, "accent"},
      {"switch on", {6, 10}, "accent"},
      {"switch off", {24, 10}, "greySoft"},
      {"check box", {3, 9}, "accent"},
      {"field", {4, 16}, "field"},
      {"segments", {8, 16}, "cardHover"},
      {"menu", {120, 3}, "panel"},
      {"bubble", {120, 8}, "panel"},
      {"section", {120, 6}, "card"},
      {"panel", {270, 8}, "panel"},
  };
  QFETCH(Theme::Choice, choice);
  Scene scene;
  scene.theme().setAlwaysReducesMotion(true);
  scene.theme().setChoice(choice);
  QVERIFY(scene.loadFile("qrc:/qt/qml/Ambrel/Gallery/Gallery.qml"));
  const QImage image = scene.grab();
  for (const Probe& probe : probes) {
    const QQuickItem* item = scene.find(probe.name);
    QVERIFY2(item, probe.name);
    const QColor wanted = scene.theme().property(probe.token).value<QColor>();
    const QColor found = pictureOf(image, item).pixelColor(probe.at);
    QVERIFY2(found.rgb() == wanted.rgb(), qPrintable(probe.name + QStringLiteral(": ") + found.name()));
  }
}

void GalleryTests::tilesHaveTheirSizes_data() {
  QTest::addColumn<QString>("name");
  QTest::addColumn<int>("width");
  QTest::newRow("small") << "ring" << 64;
  QTest::newRow("medium") << "value" << 112;
  QTest::newRow("large") << "counts" << 176;
  QTest::newRow("extra large") << "meters" << 240;
}

void GalleryTests::tilesHaveTheirSizes() {
  QFETCH(QString, name);
  QFETCH(int, width);
  Scene scene;
  QVERIFY(scene.loadFile("qrc:/qt/qml/Ambrel/Gallery/TileGallery.qml"));
  const QQuickItem* tile = scene.find(name);
  QVERIFY(tile);
  QCOMPARE(tile->size(), QSizeF(width, 64));
  scene.theme().setTextScale(1.25);
  QCOMPARE(tile->size(), QSizeF(qRound(width * 1.25), 80));
}

void GalleryTests::schemesDiffer() {
  Scene scene;
  scene.theme().setAlwaysReducesMotion(true);
  QVERIFY(scene.loadFile("qrc:/qt/qml/Ambrel/Gallery/TileGallery.qml"));
  const QImage dark = scene.grab();
  QCOMPARE(scene.grab(), dark);
  scene.theme().setChoice(Theme::Choice::Light);
  QTRY_COMPARE(scene.grab().pixelColor(2, 2), scene.theme().panel());
  QVERIFY(scene.grab() != dark);
}

void GalleryTests::longTextEndsInAnEllipsis() {
  Scene scene;
  QVERIFY(scene.loadFile("qrc:/qt/qml/Ambrel/Gallery/TileGallery.qml"));
  QQuickItem* tile = scene.find("elided");
  QVERIFY(tile);
  // The tip has the whole.
  const QString tip = tile->property("tip").toString();
  for (const char* word : {"A rather long name", "Overlong value MB/s", "and a sub-line that does not fit"})
    QVERIFY2(tip.contains(word), word);
  QCOMPARE(scene.find("value")->property("tip").toString(), QString());
  QCOMPARE(scene.find("unavailable")->property("label").toString(), QString("CPU, Not available, No sensor found"));
  QCOMPARE(scene.find("stale")->property("label").toString(), QString("CPU, 23 %, 52 °C, 12 min ago"));
}

}  // namespace ambrel

QTEST_MAIN(ambrel::GalleryTests)
#include "GalleryTests.moc"
