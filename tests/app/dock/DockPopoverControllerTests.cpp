#include <QPointer>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QSignalSpy>
#include <QTest>

#include "app/dock/BarPanels.h"
#include "app/window/ToastController.h"
#include "tests/app/dock/BarFixture.h"
#include "tests/app/kit/QMLWarnings.h"

namespace ambrel {
namespace {

// The menu of a tile, as a panel like every other.
struct Fixture : ContextFixture {
  QMLWarnings warnings;
  QQmlEngine engine;
  FakeWindowStyle windowStyle;
  DelayedSteps steps{now};
  PanelAnchor anchor{.tile = QRect(700, 820, 64, 64),
                     .bar = QRect(600, 812, 400, 80),
                     .screen = QRect(0, 0, 1600, 900),
                     .edge = DockEdge::bottom};
  std::unique_ptr<DockPopoverController> panel;

  Fixture() {
    engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
    panel = std::make_unique<DockPopoverController>(
        engine, context, windowStyle, steps.later(),
        PanelContent{.source = QUrl(QStringLiteral("qrc:/qt/qml/Ambrel/Dock/TileMenuView.qml")), .models = {&context}});
  }
  void pass(double seconds) {
    now = advanced(now, Seconds(seconds));
    steps.runDue();
  }
};

}  // namespace

class DockPopoverControllerTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void itIsMadeAtItsOpeningAndFreedWhenItWasClosedForAWhile() {
    Fixture f;
    QVERIFY(!f.panel->window());
    f.panel->close();
    QVERIFY(!f.panel->window());
    f.panel->toggle(f.anchor);
    QVERIFY(f.panel->isShown());
    const QPointer<QQuickItem> first = f.panel->content();
    QVERIFY(first);
    f.panel->toggle(f.anchor);
    QVERIFY(!f.panel->isShown());
    f.pass(1);
    f.pass(DockPopoverController::keptFor.count() - 2);
    f.panel->toggle(f.anchor);
    QCOMPARE(f.panel->content(), first.data());
    QVERIFY((f.windowStyle.prepared ==
             std::vector<std::pair<QWindow*, WindowRole>>{{f.panel->window(), WindowRole::panel}}));
    // Opened again, it outlives the time of the closing before.
    f.pass(3);
    QVERIFY(first);
    f.panel->close();
    f.pass(1);
    f.pass(DockPopoverController::keptFor.count());
    QVERIFY(!first);
    QVERIFY(!f.panel->window());
    f.panel->open(f.anchor);
    QVERIFY(f.panel->content());
  }

  void whatCannotBeMadeStaysClosed() {
    Fixture f;
    DockPopoverController panel(f.engine, f.context, f.windowStyle, f.steps.later(),
                                {.source = QUrl(QStringLiteral("qrc:/nothing.qml"))});
    panel.open(f.anchor);
    QVERIFY(!panel.isShown());
    QVERIFY(!panel.window());
    QCOMPARE(f.warnings.take().size(), 1);
  }

  void itComesAndGoesInSteps() {
    Fixture f;
    QSignalSpy shown(f.panel.get(), &DockPopoverController::shownChanged);
    f.panel->open(f.anchor);
    QCOMPARE(shown.count(), 1);
    QVERIFY(f.panel->window()->isVisible());
    QVERIFY(!f.panel->content()->property("open").toBool());
    f.pass(0.07);
    QVERIFY(f.panel->content()->property("open").toBool());
    QCOMPARE(shown.count(), 1);
    f.panel->close();
    QCOMPARE(shown.count(), 2);
    QVERIFY(!f.panel->content()->property("open").toBool());
    QVERIFY(f.panel->window()->isVisible());
    f.pass(0.36);
    QVERIFY(!f.panel->window()->isVisible());
    QCOMPARE(shown.count(), 2);
    // Opened again while it goes, it stays.
    f.panel->open(f.anchor);
    f.panel->close();
    f.panel->open(f.anchor);
    f.pass(1);
    QVERIFY(f.panel->window()->isVisible());
    QVERIFY(f.panel->content()->property("open").toBool());
  }

  void propertiesReachWhatIsShown() {
    Fixture f;
    f.panel->setProperty("item", "before");
    f.panel->open(f.anchor);
    QCOMPARE(f.panel->content()->property("item").toString(), QString("before"));
    f.panel->setProperty("item", "after");
    QCOMPARE(f.panel->content()->property("item").toString(), QString("after"));
  }

  void escapeItsContentAndAClickBesideItCloseIt() {
    Fixture f;
    f.panel->open(f.anchor);
    f.pass(0.07);
    QVERIFY(QTest::qWaitForWindowActive(f.panel->window()));
    QTest::keyClick(f.panel->window(), Qt::Key_Escape);
    QVERIFY(!f.panel->isShown());
    f.panel->open(f.anchor);
    QMetaObject::invokeMethod(f.panel->content(), "closeRequested");
    QVERIFY2(!f.panel->isShown(), "by what it shows");
    f.panel->open(f.anchor);
    f.pass(1);
    const Rect input = f.windowStyle.inputs.back();
    QTest::mouseClick(f.panel->window(), Qt::LeftButton, {}, QPoint(int(input.x) + 20, int(input.y) + 3));
    QVERIFY(f.panel->isShown());
    QTest::mouseClick(f.panel->window(), Qt::LeftButton, {}, QPoint(int(input.x) - 20, int(input.y) + 3));
    QVERIFY(!f.panel->isShown());
  }

  void aPanelThatIsLeftLeavesTheKeyboardToOthers() {
    Fixture f;
    BarPanels panels(f.engine, f.context, f.windowStyle, f.steps.later(), [&](const QString&) { return f.anchor; });
    int returns = 0;
    panels.hasBarKeyboard = [] { return true; };
    panels.giveKeyboardBack = [&] { ++returns; };
    DockPopoverController& menu = panels.panel("Dock", "TileMenuView");
    panels.open(menu);
    QVERIFY(QTest::qWaitForWindowActive(menu.window()));
    menu.close();
    QTRY_COMPARE(returns, 1);
    panels.open(menu);
    QVERIFY(QTest::qWaitForWindowActive(menu.window()));
    // As after a click on the empty desktop, which takes the keyboard from nobody.
    panels.leave();
    QVERIFY(!menu.isShown());
    QCoreApplication::processEvents();
    QCOMPARE(returns, 1);
  }

  void ofManyThatWereOpenedInTurnTheLastTwoAreKept() {
    Fixture f;
    BarPanels panels(f.engine, f.context, f.windowStyle, f.steps.later(), [&](const QString&) { return f.anchor; });
    std::vector<QPointer<QWindow>> windows;
    for (const char* widget : {"cpu", "memory", "disk"}) {
      Q_EMIT f.context.openPanel(widget, {}, QUrl(QStringLiteral("qrc:/qt/qml/Ambrel/Dock/TileMenuView.qml")),
                                 {{QStringLiteral("ownText"), QString()}});
      windows.emplace_back(f.windowStyle.prepared.back().first);
      f.pass(1);
    }
    QVERIFY(windows[0] && windows[1] && windows[2]);
    panels.closeAll();
    f.pass(1);
    QVERIFY(!windows[0]);
    QVERIFY(windows[1] && windows[2]);
  }

  void theTilesPanelsCloseBeforeAnotherProfileComes() {
    Fixture f;
    BarPanels panels(f.engine, f.context, f.windowStyle, f.steps.later(), [&](const QString&) { return f.anchor; });
    Q_EMIT f.context.openPanel("cpu", {}, QUrl(QStringLiteral("qrc:/qt/qml/Ambrel/Dock/TileMenuView.qml")),
                               {{QStringLiteral("ownText"), QString()}});
    QVERIFY(panels.isAnyShown());
    f.model.addWidget("noon", f.model.profiles()[0].id, std::nullopt);
    QVERIFY(panels.isAnyShown());
    f.model.setPinnedProfileID(f.model.profiles()[1].id);
    QVERIFY(!panels.isAnyShown());
    // One of the program's own stays, such as that in which profiles are chosen.
    panels.open(panels.panel("Dock", "TileMenuView"));
    f.model.setPinnedProfileID(f.model.profiles()[0].id);
    QVERIFY(panels.isAnyShown());
  }

  void aToastIsAboveTheBarUntilItsTimeIsOver() {
    Fixture f;
    ToastController toast(f.steps.later());
    toast.show("Lost", "", "trash");
    QVERIFY(!toast.window());
    toast.attach(f.engine, f.windowStyle, [&] { return f.anchor; });
    toast.show("Copied", "Hello", "doc.on.clipboard");
    QVERIFY(toast.window() && toast.window()->isVisible());
    QVERIFY(f.windowStyle.prepared.back().second == WindowRole::bubble);
    const Rect input = f.windowStyle.inputs.back();
    QCOMPARE(toast.window()->y() + int(input.y + input.height), f.anchor.bar.y() - 8);
    toast.close();
    QVERIFY(toast.window()->isVisible());
    // A newer message is not taken away with the old one.
    toast.show("Copied", "Again", "doc.on.clipboard");
    f.pass(1);
    QVERIFY(toast.window()->isVisible());
    toast.close();
    f.pass(1);
    QVERIFY(!toast.window()->isVisible());
  }
};

}  // namespace ambrel

QTEST_MAIN(ambrel::DockPopoverControllerTests)
#include "DockPopoverControllerTests.moc"
