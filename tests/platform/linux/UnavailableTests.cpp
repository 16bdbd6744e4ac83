// Without an X server and without a bus everything says so, and nothing falls over.

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QWindow>
#include <gtest/gtest.h>

#include "platform/linux/DBusNotifications.h"
#include "platform/linux/DBusSessionService.h"
#include "platform/linux/SessionBus.h"
#include "platform/linux/X11HotKeys.h"
#include "platform/linux/X11Pointer.h"
#include "platform/linux/X11ScreenSaver.h"
#include "platform/linux/X11Screens.h"
#include "platform/linux/X11WindowStyle.h"
#include "platform/linux/X11Workspace.h"

namespace ambrel {
namespace {

TEST(WithoutXServer, ThereIsNoConnection) {
  EXPECT_FALSE(X11Connection::open(""));
  EXPECT_FALSE(X11Connection::open(":4711"));
  EXPECT_FALSE(X11Connection::open("nonsense"));
}

TEST(WithoutXServer, ThePointerIsNowhere) {
  X11Pointer pointer(nullptr);
  EXPECT_FALSE(pointer.location());
  EXPECT_FALSE(pointer.wakeOnMove([] {}));
  pointer.stopWaiting();
}

TEST(WithoutXServer, NoKeyIsAvailable) {
  EXPECT_EQ(X11HotKeys(nullptr).add({.key = 'v', .command = true}, [] {}), HotKeyResult::notAvailable);
}

TEST(WithoutXServer, NothingIsInFrontAndNothingRuns) {
  X11Workspace workspace(nullptr, "/proc", {});
  EXPECT_TRUE(workspace.frontmost().empty());
  EXPECT_FALSE(workspace.isRunning("com.openai.codex"));
  workspace.activateLast();
  EXPECT_FALSE(workspace.activate("com.openai.codex"));
  EXPECT_FALSE(workspace.open("com.openai.codex"));
}

TEST(WithoutXServer, NoScreenSaverIsStopped) { EXPECT_FALSE(X11ScreenSaver(nullptr).suspend(true)); }

TEST(WithoutXServer, TheToolkitsScreensAreThere) {
  const X11Screens screens(nullptr);
  ASSERT_EQ(screens.list().size(), 1u);
  const ScreenInfo screen = screens.list().front();
  EXPECT_EQ(screen.frame, (Rect{0, 0, 800, 800}));
  EXPECT_EQ(screen.visibleFrame, screen.frame);
  EXPECT_EQ(screens.mainHeight(), 800);
}

TEST(WithoutXServer, WindowsGetTheirFlagsAndMasks) {
  X11WindowStyle style(nullptr);
  EXPECT_FALSE(style.isCompositing());
  QWindow window;
  style.prepare(window, WindowRole::dock);
  EXPECT_TRUE(window.flags().testFlag(Qt::WindowDoesNotAcceptFocus));
  EXPECT_TRUE(window.flags().testFlag(Qt::WindowStaysOnTopHint));
  window.setGeometry(0, 0, 200, 100);

  style.setRoundedMask(window, 10, 10, 100, 60, 20);
  const QRegion mask = window.mask();
  EXPECT_EQ(mask.boundingRect(), QRect(10, 10, 100, 60));
  EXPECT_FALSE(mask.contains(QPoint(10, 10)));
  EXPECT_FALSE(mask.contains(QPoint(109, 69)));
  EXPECT_FALSE(mask.contains(QPoint(14, 14)));
  EXPECT_TRUE(mask.contains(QPoint(17, 17)));
  EXPECT_TRUE(mask.contains(QPoint(60, 10)));
  EXPECT_TRUE(mask.contains(QPoint(10, 40)));
  EXPECT_TRUE(mask.contains(QPoint(109, 40)));
  style.setRoundedMask(window, 0, 0, 0, 0, 0);
  EXPECT_TRUE(window.mask().isEmpty());
}

TEST(ConnectorNames, TellBuiltInPanels) {
  for (const char* name : {"eDP-1", "eDP", "LVDS-1", "LVDS1", "DSI-1"}) EXPECT_TRUE(isBuiltinConnector(name)) << name;
  for (const char* name : {"HDMI-A-1", "DP-1", "VGA-1", "screen", ""}) EXPECT_FALSE(isBuiltinConnector(name)) << name;
}

TEST(WithoutBus, TheProgramRunsAlone) {
  const QDBusConnection bus = openSessionBus();
  ASSERT_FALSE(bus.isConnected());
  DBusSessionService service(bus);
  EXPECT_EQ(service.start(wish::Reveal{}), SessionRole::alone);
}

TEST(WithoutBus, NotificationsSaySoOnce) {
  DBusNotifications notifications(openSessionBus());
  std::vector<bool> heard;
  int answers = 0;
  notifications.setAvailabilityHandler([&](bool is) { heard.push_back(is); });
  notifications.requestAuthorization([&](bool isGranted) { answers += isGranted ? 100 : 1; });
  EXPECT_EQ(answers, 0) << "the answer comes later";
  notifications.post({"a", "t", "b", true});
  notifications.withdraw("a");
  notifications.requestAuthorization(nullptr);
  QCoreApplication::processEvents();
  notifications.post({"b", "t", "b", false});
  QCoreApplication::processEvents();
  EXPECT_EQ(answers, 1);
  EXPECT_EQ(heard, std::vector<bool>{false});
}

TEST(NotificationBody, IsEscapedForThoseWhoReadMarkup) {
  EXPECT_EQ(notificationBody("a & <b>&amp;</b>", true), QStringLiteral("a &amp; &lt;b&gt;&amp;amp;&lt;/b&gt;"));
  EXPECT_EQ(notificationBody("a & <b>", false), QStringLiteral("a & <b>"));
}

}  // namespace
}  // namespace ambrel
