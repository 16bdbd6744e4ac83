#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QTest>

#include "app/base/QmlObjects.h"
#include "app/dock/BubbleController.h"
#include "app/dock/DockPopoverController.h"
#include "app/window/PanelGeometry.h"
#include "app/window/PanelWindow.h"
#include "tests/app/buddy/BuddyRoom.h"
#include "tests/app/kit/QMLWarnings.h"

namespace ambrel {
namespace {

struct Fixture {
  QMLWarnings warnings;
  QQmlEngine engine;
  FakeWindowStyle style;
  BuddyRoom room;
  std::vector<std::function<void()>> later;
  PanelAnchor anchor{.tile = QRect(608, 820, 64, 64),
                     .bar = QRect(600, 812, 400, 80),
                     .screen = QRect(0, 0, 1600, 900),
                     .edge = DockEdge::bottom};
  std::unique_ptr<BubbleController> bubble;

  Fixture() {
    keep({room.center.get()});
    engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
    bubble = std::make_unique<BubbleController>(
        engine, style, [this](Seconds, std::function<void()> step) { later.push_back(std::move(step)); }, *room.center,
        [this] { return anchor; });
  }
  void say(const std::string& detail) {
    room.center->post(BuddyNotice("n", BuddyRule::diskLow, "Disk almost full", detail, room.now,
                                  {BuddyActions::OpenDiskCleanup{}, BuddyActions::Snooze{60}}));
  }
  void runLater() {
    for (auto& step : std::exchange(later, {})) step();
  }
  QRect frame() const { return static_cast<PanelWindow*>(bubble->window())->panelFrame(); }
};

}  // namespace

class BubbleControllerTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void itComesWithANoticeAndGoesWithIt() {
    Fixture f;
    QVERIFY(!f.bubble->window());
    f.say("8.2 GB free.");
    QVERIFY(f.bubble->window() && f.bubble->window()->isVisible());
    QCOMPARE(f.bubble->tailSide(), QStringLiteral("bottom"));
    // The tip is the gap away from the bar, over the middle of the tile.
    QCOMPARE(f.frame().y() + f.frame().height(), f.anchor.bar.y() - panelGap);
    QCOMPARE(f.frame().x() + f.bubble->tailAt(), f.anchor.tile.x() + 32);
    f.room.center->closeBubble();
    for (int i = 0; i < 4; ++i) f.runLater();
    QVERIFY(!f.bubble->window()->isVisible());
    f.say("8.2 GB free.");
    QVERIFY(f.bubble->window()->isVisible());
  }

  void itNeverTakesTheKeyboard() {
    Fixture f;
    f.say("8.2 GB free.");
    QCOMPARE(f.style.prepared.back().second, WindowRole::bubble);
    QVERIFY(!f.bubble->window()->isActive());
    // Clicks beside the bubble go to the window below.
    const Rect input = f.style.inputs.back();
    const QPoint corner = f.bubble->window()->position() + QPoint(int(input.x), int(input.y));
    QCOMPARE(QRect(corner, QSize(int(input.width), int(input.height))), f.frame());
    QVERIFY(!QRect(f.bubble->window()->position(), f.bubble->window()->size()).intersects(f.anchor.bar));
  }

  void itIsAsTallAsItsWords() {
    Fixture f;
    f.say("8.2 GB free.");
    const int one = f.frame().height();
    f.room.center->closeBubble();
    f.say(
        "8.2 GB free. Caches can go, and what is in the trash, and a good many things besides that nobody asked "
        "for.");
    QTRY_VERIFY(f.frame().height() > one + 15);
    QCOMPARE(f.frame().y() + f.frame().height(), f.anchor.bar.y() - panelGap);
    // Words without an end are cut, and the bubble stays on the screen.
    f.room.center->closeBubble();
    f.say(std::string(5000, 'x') + " " + std::string(5000, 'y'));
    QTRY_VERIFY(f.frame().height() > one + 60);
    QVERIFY(f.frame().height() < 320);
  }

  void withoutATileOrACompositorItHasNoTail() {
    Fixture f;
    f.say("8.2 GB free.");
    const QRect withTail = f.frame();
    f.style.compositing = false;
    f.bubble->place();
    QCOMPARE(f.bubble->tailSide(), QString());
    QCOMPARE(f.frame().height(), withTail.height() - tailReach);
    QCOMPARE(f.frame().x(), withTail.x());
    f.style.compositing = true;
    f.anchor.tile.translate(100, 0);
    f.bubble->place();
    QCOMPARE(f.frame().x() + f.bubble->tailAt(), f.anchor.tile.x() + 32);
    f.anchor.tile = {};
    f.bubble->place();
    QCOMPARE(f.bubble->tailSide(), QString());
    QCOMPARE(f.frame().center().x(), f.anchor.bar.center().x());
  }
};

}  // namespace ambrel

QTEST_MAIN(ambrel::BubbleControllerTests)
#include "BubbleControllerTests.moc"
