#include <QAbstractItemModelTester>
#include <QQuickItem>
#include <QSignalSpy>
#include <QTest>

#include "app/dock/ContextPeeker.h"
#include "app/dock/DockPanelController.h"
#include "app/kit/Theme.h"
#include "app/window/PanelWindow.h"
#include "tests/app/dock/BarFixture.h"
#include "tests/app/kit/QMLWarnings.h"

namespace ambrel {

class DockPanelControllerTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { warnings_ = std::make_unique<QMLWarnings>(); }
  void cleanup() { warnings_.reset(); }

  void thePointerAPanelOrAPeekBringsItOut() {
    BarFixture f;
    f.bar.start();
    QVERIFY(f.isShownAfter(10, {800, 0}));
    QVERIFY(!f.isShownAfter(0.6, BarFixture::away));

    f.isHeld = true;
    f.bar.holdingChanged();
    QVERIFY(f.isShownAfter(60));
    f.isHeld = false;
    f.bar.holdingChanged();
    QVERIFY(!f.isShown());

    ContextPeeker peeker(f.agents, f.settings, [&](Seconds length) { f.bar.peek(length); });
    f.pollAgents({{.id = "codex:a", .title = "Mend", .status = AgentStatus::working, .updatedAt = {}}});
    peeker.check(f.now);
    QVERIFY(!f.isShown());
    f.pollAgents({{.id = "codex:a", .title = "Mend", .status = AgentStatus::needsInput, .updatedAt = {}}});
    peeker.check(f.now);
    f.pass(5.9);
    QVERIFY(f.isShown() && f.bar.presentation().isPeeking());
    f.pass(0.8);
    QVERIFY(!f.isShown() && !f.bar.presentation().isPeeking());
    peeker.gatherMore = [&](PeekSignals& signals) { signals.waterDue = f.now; };
    peeker.check(f.now);
    QVERIFY(f.isShown());
  }

  void alwaysVisibleItStaysAndThenGoesByThePointer() {
    BarFixture f;
    f.settings.set(setting::barAlwaysVisible, true);
    f.bar.start();
    QVERIFY(f.isShownAfter(60));
    // Meanwhile nobody asks where the pointer is.
    QVERIFY(!f.pointer.isWaiting());
    const int looks = f.pointer.looks;
    f.pass(60);
    QCOMPARE(f.pointer.looks, looks);
    QVERIFY(f.isShownAfter(60, {0, 0}));
    f.pointer.move(BarFixture::away);
    f.pass(1);
    f.settings.set(setting::barAlwaysVisible, false);
    QVERIFY(f.isShown());
    QVERIFY(f.pointer.isWaiting() || f.pointer.looks > looks);
    QVERIFY(!f.isShownAfter(0.6));
    f.settings.set(setting::barAlwaysVisible, true);
    QVERIFY(f.isShown());
  }

  void aWindowInFullScreenHasTheScreenToItself() {
    BarFixture f;
    f.settings.set(setting::barAlwaysVisible, true);
    f.bar.start();
    const auto fill = [&](bool isFilled) {
      f.screens.screens.front().isFilled = isFilled;
      f.bar.screensChanged();
    };
    fill(true);
    QVERIFY(!f.isShown());
    // Called, it comes all the same, and goes again.
    QVERIFY(f.isShownAfter(0.1, {800, 0}));
    QVERIFY(!f.isShownAfter(0.6, BarFixture::away));
    fill(false);
    QVERIFY(f.isShown());
  }

  void theStripAtItsEdgeRevealsIt() {
    for (const char* edge : {"bottom", "left", "right"}) {
      BarFixture f;
      f.settings.setProperty("dockEdge", edge);
      f.bar.start();
      QVERIFY(!f.isShownAfter(1, BarFixture::away));
      QCOMPARE(f.pointer.strips.size(), std::size_t{1});
      f.pointer.move({f.pointer.strips[0].midX(), f.pointer.strips[0].midY()});
      f.pass(0.1);
      QVERIFY2(f.isShown(), edge);
      f.settings.set(setting::barAlwaysVisible, true);
      QVERIFY(f.pointer.strips.empty());
    }
  }

  void theKeyboardHoldsIt() {
    BarFixture f;
    f.bar.start();
    f.bar.revealForKeyboard();
    int givenBack = 0;
    f.bar.onKeyboardLeft = [&] { ++givenBack; };
    QVERIFY(QTest::qWaitForWindowActive(f.bar.window()));
    QVERIFY(f.isShownAfter(60));
    const auto* window = qobject_cast<QQuickWindow*>(f.bar.window());
    QVERIFY(window->activeFocusItem()->property("place").toString().startsWith("1 of "));
    f.bar.leaveKeyboard();
    QCOMPARE(givenBack, 1);
    QVERIFY(!window->activeFocusItem() || window->activeFocusItem() == window->contentItem());
    QVERIFY(!f.isShownAfter(0.6));
  }

  void aKeyboardThatIsRefusedDoesNotHoldIt() {
    BarFixture f;
    f.windowStyle.grantsKeys = false;
    f.bar.start();
    f.bar.revealForKeyboard();
    QVERIFY(f.isShownAfter(5));
    QVERIFY(!f.isShownAfter(2));
  }

  void aWindowThatTakesTheKeyboardKeepsIt() {
    BarFixture f;
    f.bar.start();
    f.bar.revealForKeyboard();
    int givenBack = 0;
    f.bar.onKeyboardLeft = [&] { ++givenBack; };
    QVERIFY(QTest::qWaitForWindowActive(f.bar.window()));
    QWindow other;
    other.show();
    other.requestActivate();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    QVERIFY(!f.isShownAfter(0.6));
    QCOMPARE(givenBack, 0);
  }

  void aPointerThatRestsCostsNothing() {
    BarFixture f;
    f.bar.start();
    f.pass(1);
    QVERIFY(!f.bar.isTicking());
    QVERIFY(f.pointer.isWaiting());
    f.pointer.move({700, 400});
    QVERIFY(f.bar.isTicking());
    for (int i = 0; i < 30; ++i) {
      f.pointer.at = Point{700.0 + i, 400};
      f.pass(1.0 / 30);
      QVERIFY(f.bar.isTicking());
    }
    f.pass(1);
    QVERIFY(!f.bar.isTicking());
    QVERIFY(f.pointer.isWaiting());
    const int looks = f.pointer.looks;
    f.pass(60);
    QCOMPARE(f.pointer.looks, looks);
    // Nor over a bar that is out.
    QVERIFY(f.isShownAfter(1, {800, 0}));
    QVERIFY(!f.bar.isTicking());
  }

  void withoutAnnouncementsItLooksByItself() {
    BarFixture f;
    f.pointer.canWake = false;
    f.bar.start();
    f.pass(1);
    QVERIFY(!f.bar.isTicking());
    f.pointer.at = Point{800, 0};
    QTRY_VERIFY(f.isShown());
  }

  void itsWindowComesAndGoesInSteps() {
    BarFixture f;
    f.bar.start();
    QVERIFY(f.bar.window() && !f.bar.window()->isVisible() && !f.context.widgetsActive());
    f.bar.reveal();
    QVERIFY(f.bar.window()->isVisible() && !f.bar.isContentShown() && f.context.widgetsActive());
    f.pass(0.1);
    QVERIFY(f.bar.isContentShown());
    f.pass(0.45);
    QVERIFY(!f.isShown() && !f.bar.isContentShown() && f.bar.window()->isVisible());
    f.pass(0.4);
    QVERIFY(!f.bar.window()->isVisible() && !f.context.widgetsActive());
  }

  void itIsAtItsEdgeAsLongAsThatAllows() {
    BarFixture f;
    // A second screen's left edge, and a panel at the lower one.
    f.screens.screens = {{"DP-1", {200, 0, 1600, 900}, {200, 48, 1500, 852}, false}};
    f.putOnBar({"cpu", "memory"});
    f.bar.start();
    QCOMPARE(f.frame().y() + f.frame().height(), 900 - 48 - 8);
    QVERIFY(std::abs(f.frame().center().x() - 1000) <= 1);
    QCOMPARE(f.frame().height(), 80);
    QCOMPARE(f.maxLengths.back(), 1460.0);
    f.settings.set(setting::dockEdge, DockEdge::left);
    QCOMPARE(f.bar.edgeName(), QString("left"));
    QCOMPARE(f.frame().x(), 208);
    QVERIFY(std::abs(f.frame().center().y() - 450) <= 1);
    QCOMPARE(f.frame().height(), 8 + 64 + 8 + 64 + 8);
    f.settings.set(setting::dockEdge, DockEdge::right);
    QCOMPARE(f.frame().x() + f.frame().width(), 1700 - 8);
    f.bar.setScale(1.5);
    QCOMPARE(f.frame().height(), 228);
  }

  void onTheScreenItLeavesTheOldEdgeFirst() {
    BarFixture f;
    f.settings.set(setting::barAlwaysVisible, true);
    f.bar.start();
    f.pass(0.5);
    const QRect before = f.frame();
    f.settings.set(setting::dockEdge, DockEdge::left);
    f.pass(0.2);
    QVERIFY(!f.bar.isContentShown());
    QCOMPARE(f.frame(), before);
    f.pass(0.2);
    QCOMPARE(f.bar.edgeName(), QString("left"));
    QCOMPARE(f.frame().x(), 8);
    QVERIFY(f.bar.window()->isVisible() && !f.bar.isContentShown());
    f.pass(0.1);
    QVERIFY(f.bar.isContentShown());
    // A second thought on the way keeps it where it is.
    f.settings.set(setting::dockEdge, DockEdge::right);
    f.settings.set(setting::dockEdge, DockEdge::left);
    f.pass(1);
    QVERIFY(f.bar.isContentShown());
    QCOMPARE(f.frame().x(), 8);
  }

  void itFollowsItsScreen() {
    BarFixture f;
    f.bar.start();
    QSignalSpy layout(&f.bar, &DockPanelController::layoutChanged);
    f.screens.screens = {{"DP-2", {0, 0, 2560, 1440}, {0, 0, 2560, 1440}, false}};
    f.bar.updatePosition();
    QVERIFY(layout.count() > 0);
    QVERIFY(std::abs(f.frame().center().x() - 1280) <= 1);
    QCOMPARE(f.frame().y() + f.frame().height(), 1432);
    // The edge is where the new screen has it.
    f.pointer.move({2000, 1});
    QVERIFY(f.isShown());
  }

  void withoutAScreenNothingChanges() {
    BarFixture f;
    f.bar.start();
    f.pointer.move({800, 0});
    f.pass(1);
    const QRect frame = f.frame();
    f.screens.screens.clear();
    f.bar.updatePosition();
    QCOMPARE(static_cast<PanelWindow*>(f.bar.window())->panelFrame(), frame);
    QVERIFY(f.isShownAfter(10, BarFixture::away));
    QVERIFY(!f.bar.isTicking());
    f.screens.screens = FakeScreens().screens;
    f.bar.updatePosition();
    QCOMPARE(f.frame(), frame);
    QVERIFY(!f.isShownAfter(0.7));
  }

  void anEdgeThatMovesAwayFromARestingPointerLetsItGo() {
    BarFixture f;
    f.bar.start();
    f.pointer.move({800, 0});
    f.pass(10);
    f.settings.set(setting::dockEdge, DockEdge::left);
    QVERIFY(!f.isShownAfter(1));
  }

  void theWindowLeavesItsMarginToOthers() {
    BarFixture f;
    f.bar.start();
    QVERIFY(
        (f.windowStyle.prepared == std::vector<std::pair<QWindow*, WindowRole>>{{f.bar.window(), WindowRole::dock}}));
    const Rect input = f.windowStyle.inputs.back();
    QCOMPARE(QRectF(input.x, input.y, input.width, input.height), f.bar.slab());
    const QRect window = f.bar.window()->geometry();
    QCOMPARE(f.frame(), f.bar.slab().toRect().translated(window.topLeft()));
    QCOMPARE(f.frame().y() - window.y(), 48);
    // Nor does it cover the strip by which a hidden dock comes.
    QCOMPARE(window.y() + window.height(), 896);
  }

  void withoutACompositorTheWindowIsCut() {
    BarFixture f;
    f.bar.start();
    QVERIFY(f.windowStyle.masks.back().second <= 0);
    f.windowStyle.changeCompositing(false);
    QVERIFY(!f.bar.isCompositing());
    const auto [mask, radius] = f.windowStyle.masks.back();
    // To the corners that the bar draws.
    QCOMPARE(radius, static_cast<double>(Theme::radiusBar));
    QCOMPARE(QRectF(mask.x, mask.y, mask.width, mask.height), f.bar.slab());
  }

  void aPanelOpensAtItsTile() {
    BarFixture f;
    f.putOnBar({"cpu", "memory"});
    f.bar.start();
    const PanelAnchor first = f.bar.anchor(f.item(0)), second = f.bar.anchor(f.item(1));
    QCOMPARE(first.tile.topLeft(), f.frame().topLeft() + QPoint(8, 8));
    QCOMPARE(second.tile.topLeft(), first.tile.topRight() + QPoint(9, 0));
    QVERIFY(f.frame().contains(second.tile));
    QCOMPARE(first.screen, QRect(0, 0, 1600, 900));
    QVERIFY(f.bar.anchor("no such slot").tile.isEmpty());
  }

  void aScrolledTileAnchorsWhereItIsSeen() {
    BarFixture f;
    f.screens.screens = {{"DP-1", {0, 0, 400, 900}, {0, 0, 400, 900}, false}};
    f.putOnBar({"cpu", "memory", "disk", "network", "clock", "date"});
    f.bar.start();
    QVERIFY(f.bar.isScrolling() && f.bar.contentLength() > 360 && f.bar.slab().width() <= 360);
    const QRect before = f.bar.anchor(f.item(2)).tile;
    f.bar.setProperty("scrollOffset", 50);
    QCOMPARE(f.bar.anchor(f.item(2)).tile, before.translated(-50, 0));
    // Cut to what of it is on the bar.
    QVERIFY(f.bar.anchor(f.item(0)).tile.width() < before.width());
    QVERIFY(f.frame().contains(f.bar.anchor(f.item(0)).tile));
  }

  void theTilesFollowTheProfile() {
    BarFixture f;
    QAbstractItemModelTester tester(f.bar.tiles(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    f.putOnBar({"cpu", "memory"});
    f.bar.start();
    QCOMPARE(f.bar.tiles()->rowCount(), 2);
    const double width = f.bar.slab().width();
    f.putOnBar({"cpu", "memory", "disk"});
    QCOMPARE(f.bar.tiles()->rowCount(), 3);
    QVERIFY(f.bar.slab().width() > width);
    QVERIFY(!f.bar.isEmpty());
    f.putOnBar({});
    QVERIFY(f.bar.isEmpty());
    QVERIFY(f.bar.slab().width() > 100);
  }

  void aHeldTileIsWhereItWouldLand_data() {
    QTest::addColumn<QString>("edge");
    QTest::addColumn<int>("count");
    QTest::newRow("bottom") << "bottom" << 3;
    QTest::newRow("left") << "left" << 3;
    QTest::newRow("scrolled") << "bottom" << 40;
  }

  void aHeldTileIsWhereItWouldLand() {
    QFETCH(QString, edge);
    QFETCH(int, count);
    BarFixture f;
    f.settings.setProperty("dockEdge", edge);
    std::vector<std::string> widgets;
    for (int i = 0; i < count; ++i) widgets.push_back("w" + std::to_string(i));
    f.putOnBar(widgets);
    f.bar.start();
    f.bar.reveal();
    f.bar.setProperty("scrollOffset", count > 3 ? 40.0 : 0.0);
    auto* window = qobject_cast<QQuickWindow*>(f.bar.window());
    TileDrag& drag = *f.context.drag();
    const auto shown = [&] {
      std::string names;
      for (const DockItem& item : drag.shown(*f.model.activeProfile())) names += *item.widget + ' ';
      return names.substr(0, 8);
    };
    const auto send = [&](QEvent::Type type, QPoint at) {
      QMouseEvent event(type, at - window->position(), at, Qt::LeftButton, Qt::LeftButton, {});
      QCoreApplication::sendEvent(window, &event);
    };
    const auto hold = [&] { drag.begin(window->contentItem(), "w0", f.item(0), 1, {}); };
    // Held far from the bar the tile is off it, and the others close up.
    hold();
    QVERIFY(drag.isActive() && drag.removes());
    QCOMPARE(f.bar.tiles()->count(), count - 1);
    // A little behind the middle of the next.
    const auto over = [&](std::size_t slot) { return f.bar.anchor(f.item(slot)).tile.center() + QPoint(4, 4); };
    send(QEvent::MouseMove, over(1));
    QCOMPARE(shown(), std::string("w1 w0 w2"));
    QVERIFY(!drag.removes());
    send(QEvent::MouseMove, over(2));
    QCOMPARE(shown(), std::string("w1 w2 w0"));
    send(QEvent::MouseMove, over(1) - QPoint(20, 20));
    QCOMPARE(shown(), std::string("w0 w1 w2"));
    send(QEvent::MouseMove, over(1));
    QCOMPARE(f.model.activeProfile()->items[0].widget, std::optional<std::string>("w0"));
    send(QEvent::MouseButtonRelease, over(1));
    QVERIFY(!drag.isActive());
    QCOMPARE(f.model.activeProfile()->items[0].widget, std::optional<std::string>("w1"));
    f.model.undo();

    // Whatever else happens to the profile ends it without harm.
    hold();
    f.putOnBar({"cpu", "memory"});
    QVERIFY(!drag.isActive());
    send(QEvent::MouseButtonRelease, {});
    QCOMPARE(f.model.activeProfile()->items.size(), 2u);
  }

 private:
  std::unique_ptr<QMLWarnings> warnings_;
};

}  // namespace ambrel

QTEST_MAIN(ambrel::DockPanelControllerTests)
#include "DockPanelControllerTests.moc"
