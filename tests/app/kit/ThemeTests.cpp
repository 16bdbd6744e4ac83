#include <QDBusVariant>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QSignalSpy>
#include <QTest>

#include "app/kit/DesktopAppearance.h"
#include "app/kit/Theme.h"

namespace ambrel {

class ThemeTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void textReachesItsContrast_data();
  void textReachesItsContrast();
  void marksStandOutFromTileAndTrack_data() { textReachesItsContrast_data(); }
  void marksStandOutFromTileAndTrack();
  void forcedSchemeWinsOverTheDesktop();
  void desktopSettings_data();
  void desktopSettings();
  void reducedMotionLeavesFadesOnly();
  void textScaleIsBounded_data();
  void textScaleIsBounded();
  void gaugeTurnsOrangeThenRed_data();
  void gaugeTurnsOrangeThenRed();
  void qmlFollowsTheScheme();
  void tonesOutliveTheirUse();
};

void ThemeTests::textReachesItsContrast_data() {
  QTest::addColumn<bool>("dark");
  QTest::newRow("dark") << true;
  QTest::newRow("light") << false;
}

void ThemeTests::textReachesItsContrast() {
  QFETCH(bool, dark);
  const Palette p = dark ? darkPalette() : lightPalette();
  const QColor grounds[] = {p.tile, p.tileHover, p.tilePressed, p.panel, p.card, p.cardHover, p.field, p.greySoft};
  for (const QColor& ground : grounds) {
    for (const QColor& ink : {p.ink, p.ink2, p.ink3})
      QVERIFY2(contrastRatio(ink, ground) >= 4.5, qPrintable(ink.name() + " on " + ground.name()));
  }
  for (const ToneColors& tone : {p.neutral, p.orange, p.blue, p.green, p.red, p.teal, p.violet, p.yellow}) {
    for (const QColor& ground : {p.tile, p.panel, p.card, tone.soft})
      QVERIFY2(contrastRatio(tone.text, ground) >= 4.5, qPrintable(tone.text.name() + " on " + ground.name()));
  }
  for (const QColor& ground : {p.accent, p.accentHover, p.accentPressed})
    QVERIFY(contrastRatio(p.onAccent, ground) >= 4.5);
}

void ThemeTests::marksStandOutFromTileAndTrack() {
  QFETCH(bool, dark);
  const Palette p = dark ? darkPalette() : lightPalette();
  for (const ToneColors& tone : {p.orange, p.blue, p.green, p.red, p.teal, p.violet, p.yellow}) {
    QVERIFY2(contrastRatio(tone.mark, p.tile) >= 3, qPrintable(tone.mark.name()));
    QVERIFY2(contrastRatio(tone.mark, p.track) >= 3, qPrintable(tone.mark.name()));
  }
}

void ThemeTests::forcedSchemeWinsOverTheDesktop() {
  DesktopAppearance desktop;
  Theme theme(nullptr);
  theme.follow(desktop);
  const auto portal = [&](uint scheme) { desktop.take("org.freedesktop.appearance", "color-scheme", scheme); };
  portal(1);
  QVERIFY(theme.dark());
  portal(2);
  QVERIFY(!theme.dark());
  QCOMPARE(theme.ink(), lightPalette().ink);
  theme.setChoice(Theme::Choice::Dark);
  QVERIFY(theme.dark());
  portal(1);
  portal(2);
  QVERIFY(theme.dark());
  QSignalSpy spy(&theme, &Theme::schemeChanged);
  theme.setChoice(Theme::Choice::System);
  QVERIFY(!theme.dark());
  QCOMPARE(spy.count(), 1);
}

void ThemeTests::desktopSettings_data() {
  QTest::addColumn<QString>("group");
  QTest::addColumn<QString>("key");
  QTest::addColumn<QVariant>("value");
  QTest::addColumn<bool>("changes");
  const QString look = "org.freedesktop.appearance";
  QTest::newRow("dark") << look << "color-scheme" << QVariant(1u) << true;
  QTest::newRow("wrapped twice") << look << "color-scheme"
                                 << QVariant::fromValue(QDBusVariant(QVariant::fromValue(QDBusVariant(1u)))) << true;
  QTest::newRow("no preference") << look << "color-scheme" << QVariant(0u) << false;
  QTest::newRow("out of range") << look << "color-scheme" << QVariant(7u) << false;
  QTest::newRow("of another type") << look << "color-scheme" << QVariant("1") << false;
  QTest::newRow("in another group") << "org.example"
                                    << "color-scheme" << QVariant(1u) << false;
  QTest::newRow("animations off") << "org.gnome.desktop.interface"
                                  << "enable-animations" << QVariant(false) << true;
  QTest::newRow("animations on") << "org.gnome.desktop.interface"
                                 << "enable-animations" << QVariant(true) << false;
}

void ThemeTests::desktopSettings() {
  QFETCH(QString, group);
  QFETCH(QString, key);
  QFETCH(QVariant, value);
  QFETCH(bool, changes);
  DesktopAppearance desktop;
  QSignalSpy spy(&desktop, &DesktopAppearance::changed);
  desktop.take(group, key, value);
  desktop.take(group, key, value);
  QCOMPARE(spy.count(), changes ? 1 : 0);
}

void ThemeTests::reducedMotionLeavesFadesOnly() {
  DesktopAppearance desktop;
  Theme theme(nullptr);
  theme.follow(desktop);
  QCOMPARE(theme.openDuration(), 200);
  QSignalSpy spy(&theme, &Theme::motionChanged);
  desktop.take("org.gnome.desktop.interface", "enable-animations", false);
  QCOMPARE(spy.count(), 1);
  QVERIFY(theme.reducedMotion());
  for (const int duration : {theme.pressDuration(), theme.openDuration()}) QCOMPARE(duration, 120);
  QCOMPARE(theme.travel(), 0.0);
  QCOMPARE(theme.pressScale(), 1.0);
  desktop.take("org.gnome.desktop.interface", "enable-animations", true);
  QVERIFY(!theme.reducedMotion());
  theme.setAlwaysReducesMotion(true);
  QVERIFY(theme.reducedMotion());
}

void ThemeTests::textScaleIsBounded_data() {
  QTest::addColumn<qreal>("wanted");
  QTest::addColumn<qreal>("given");
  QTest::newRow("as asked") << 1.25 << 1.25;
  QTest::newRow("too small") << 0.1 << 0.8;
  QTest::newRow("too large") << 40.0 << 2.0;
  QTest::newRow("not a number") << qQNaN() << 1.0;
}

void ThemeTests::textScaleIsBounded() {
  QFETCH(qreal, wanted);
  QFETCH(qreal, given);
  Theme theme(nullptr);
  theme.setTextScale(wanted);
  QCOMPARE(theme.textScale(), given);
  QCOMPARE(theme.value()->font().pixelSize(), qRound(18 * given));
  QCOMPARE(theme.tileHeight(), qRound(64 * given));
}

void ThemeTests::gaugeTurnsOrangeThenRed_data() {
  QTest::addColumn<qreal>("percent");
  QTest::addColumn<QColor>("gauge");
  QTest::addColumn<QColor>("charge");
  const Palette p = darkPalette();
  QTest::newRow("9.9") << 9.9 << p.teal.mark << p.red.mark;
  QTest::newRow("10") << 10.0 << p.teal.mark << p.orange.mark;
  QTest::newRow("19.9") << 19.9 << p.teal.mark << p.orange.mark;
  QTest::newRow("20") << 20.0 << p.teal.mark << p.green.mark;
  QTest::newRow("74.9") << 74.9 << p.teal.mark << p.green.mark;
  QTest::newRow("75") << 75.0 << p.orange.mark << p.green.mark;
  QTest::newRow("90") << 90.0 << p.orange.mark << p.green.mark;
  QTest::newRow("90.1") << 90.1 << p.red.mark << p.green.mark;
}

void ThemeTests::gaugeTurnsOrangeThenRed() {
  QFETCH(qreal, percent);
  QFETCH(QColor, gauge);
  QFETCH(QColor, charge);
  Theme theme(nullptr);
  QCOMPARE(theme.gaugeTone(percent, theme.teal())->mark(), gauge);
  QCOMPARE(theme.chargeTone(percent)->mark(), charge);
}

void ThemeTests::qmlFollowsTheScheme() {
  QQmlEngine engine;
  engine.addImportPath("qrc:/qt/qml");
  QQmlComponent component(&engine);
  component.setData(
      "import QtQuick; import Ambrel.Kit\n"
      "Item { property color ink: Theme.ink; property color mark: Theme.orange.mark\n"
      "       property int size: Theme.value.font.pixelSize; property Label label: Label { role: Theme.caption } }",
      {});
  const std::unique_ptr<QObject> item(component.create());
  QVERIFY2(item, qPrintable(component.errorString()));
  Theme& theme = themeOf(engine);
  theme.setChoice(Theme::Choice::Light);
  QCOMPARE(item->property("ink").value<QColor>(), lightPalette().ink);
  QCOMPARE(item->property("mark").value<QColor>(), lightPalette().orange.mark);
  theme.setTextScale(1.5);
  QCOMPARE(item->property("size").toInt(), 27);
  auto* label = item->property("label").value<QObject*>();
  QCOMPARE(label->property("height").toReal(), 21.0);
}

void ThemeTests::tonesOutliveTheirUse() {
  QQmlEngine engine;
  engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
  Theme& theme = themeOf(engine);
  QQmlComponent component(&engine);
  component.setData(
      "import QtQml\nimport Ambrel.Kit\n"
      "QtObject { Component.onCompleted: Theme.gaugeTone(80, Theme.blue).mark }",
      {});
  delete component.create();
  QVERIFY2(!component.isError(), qPrintable(component.errorString()));
  engine.collectGarbage();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  QCOMPARE(theme.orange()->mark(), theme.palette().orange.mark);
}

}  // namespace ambrel

QTEST_MAIN(ambrel::ThemeTests)
#include "ThemeTests.moc"
