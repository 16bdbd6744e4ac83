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
  void textReachesItsContrast() {
    for (const Palette& p : {darkPalette(), lightPalette()}) {
      for (const QColor& ground :
           {p.tile, p.tileHover, p.tilePressed, p.panel, p.card, p.cardHover, p.field, p.greySoft})
        for (const QColor& ink : {p.ink, p.ink2, p.ink3})
          QVERIFY2(contrastRatio(ink, ground) >= 4.5, qPrintable(ink.name() + " on " + ground.name()));
      for (const ToneColors& tone : {p.neutral, p.orange, p.blue, p.green, p.red, p.teal, p.violet, p.yellow}) {
        for (const QColor& ground : {p.tile, p.panel, p.card, tone.soft})
          QVERIFY2(contrastRatio(tone.text, ground) >= 4.5, qPrintable(tone.text.name() + " on " + ground.name()));
        for (const QColor& ground : {p.tile, p.track})
          QVERIFY2(tone == p.neutral || contrastRatio(tone.mark, ground) >= 3, qPrintable(tone.mark.name()));
      }
      for (const QColor& ground : {p.accent, p.accentHover, p.accentPressed})
        QVERIFY(contrastRatio(p.onAccent, ground) >= 4.5);
    }
  }

  void forcedSchemeWinsOverTheDesktop() {
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

  void onlyWhatThePortalMeansIsTaken() {
    const char* look = "org.freedesktop.appearance";
    const char* desktopSettings = "org.gnome.desktop.interface";
    const QVariant wrappedTwice = QVariant::fromValue(QDBusVariant(QVariant::fromValue(QDBusVariant(1u))));
    const struct {
      const char *group, *key;
      QVariant value;
      int changes;
    } rows[] = {{look, "color-scheme", 1u, 1},
                {look, "color-scheme", wrappedTwice, 1},
                {look, "color-scheme", 0u, 0},
                {look, "color-scheme", 7u, 0},
                {look, "color-scheme", "1", 0},
                {"org.example", "color-scheme", 1u, 0},
                {desktopSettings, "enable-animations", false, 1},
                {desktopSettings, "enable-animations", true, 0},
                {desktopSettings, "text-scaling-factor", 1.5, 1},
                {desktopSettings, "text-scaling-factor", 1, 0}};
    for (const auto& row : rows) {
      DesktopAppearance desktop(QStringLiteral("wayland"));
      QSignalSpy spy(&desktop, &DesktopAppearance::changed);
      for (int i = 0; i < 2; ++i) desktop.take(row.group, row.key, row.value);
      QVERIFY2(spy.count() == row.changes, qPrintable(QStringLiteral("%1 in %2").arg(row.key, row.group)));
    }
  }

  void reducedMotionLeavesFadesOnly() {
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

  void desktopsTextScaleCountsOnce() {
    for (const auto& [platform, scale] : {std::pair("wayland", 1.5), {"wayland-egl", 1.5}, {"xcb", 1.0}}) {
      DesktopAppearance desktop(platform);
      Theme theme(nullptr);
      theme.follow(desktop);
      desktop.take("org.gnome.desktop.interface", "text-scaling-factor", 1.5);
      QCOMPARE(theme.textScale(), scale);
    }
  }

  void textScaleIsBounded() {
    const std::pair<qreal, qreal> rows[] = {{1.25, 1.25}, {0.1, 1}, {40, 2}, {qQNaN(), 1}};
    for (const auto& [wanted, given] : rows) {
      Theme theme(nullptr);
      theme.setTextScale(wanted);
      QCOMPARE(theme.textScale(), given);
      QCOMPARE(theme.value()->font().pixelSize(), qRound(18 * given));
      QCOMPARE(theme.tileHeight(), qRound(64 * given));
    }
  }

  void gaugesTurnOrangeThenRed() {
    Theme theme(nullptr);
    const auto gauge = [&](qreal percent) { return theme.gaugeTone(percent, theme.teal()); };
    QVERIFY(gauge(74.9) == theme.teal() && gauge(75) == theme.orange());
    QVERIFY(gauge(90) == theme.orange() && gauge(90.1) == theme.red());
    QVERIFY(theme.chargeTone(9.9) == theme.red() && theme.chargeTone(10) == theme.orange());
    QVERIFY(theme.chargeTone(19.9) == theme.orange() && theme.chargeTone(20) == theme.green());
  }

  void qmlFollowsTheScheme() {
    QQmlEngine engine;
    engine.addImportPath("qrc:/qt/qml");
    QQmlComponent component(&engine);
    component.setData(
        "import QtQuick; import Ambrel.Kit\n"
        "Item { property color ink: Theme.ink; property color mark: Theme.orange.mark\n"
        "       property int size: Theme.value.font.pixelSize; property Label label: Label { role: Theme.caption }\n"
        "       property Symbol sign: Symbol { size: 20 } property Button button: Button {} }",
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
    QCOMPARE(item->property("sign").value<QObject*>()->property("width").toReal(), 30.0);
    QCOMPARE(item->property("button").value<QObject*>()->property("height").toReal(), 48.0);
  }

  void tonesOutliveTheirUse() {
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
};

}  // namespace ambrel

QTEST_MAIN(ambrel::ThemeTests)
#include "ThemeTests.moc"
