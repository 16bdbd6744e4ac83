// Without an X server and without a bus everything says so, and nothing falls over.

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QLocalServer>
#include <QTemporaryDir>
#include <QWindow>
#include <gtest/gtest.h>

#include "platform/linux/CanberraSounds.h"
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

TEST(WithoutXServer, NothingIsAvailable) {
  for (const char* display : {"", ":4711", "nonsense"}) EXPECT_FALSE(X11Connection::open(display)) << display;
  X11Pointer pointer(nullptr);
  EXPECT_FALSE(pointer.location() || pointer.wakeOnMove([] {}));
  pointer.stopWaiting();
  EXPECT_EQ(X11HotKeys(nullptr).add({.key = 'v', .command = true}, [] {}), HotKeyResult::notAvailable);
  EXPECT_FALSE(X11ScreenSaver(nullptr).suspend(true));
  X11Workspace workspace(nullptr, "/proc", {});
  workspace.activateLast();
  EXPECT_TRUE(workspace.frontmost().empty());
  EXPECT_FALSE(workspace.isRunning("com.openai.codex") || workspace.activate("com.openai.codex") ||
               workspace.open("com.openai.codex"));
}

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
  for (const QPoint at : {QPoint(10, 10), QPoint(109, 69), QPoint(14, 14)}) EXPECT_FALSE(mask.contains(at)) << at.x();
  for (const QPoint at : {QPoint(17, 17), QPoint(60, 10), QPoint(10, 40), QPoint(109, 40)})
    EXPECT_TRUE(mask.contains(at)) << at.x();
  style.setRoundedMask(window, 0, 0, 0, 0, 0);
  EXPECT_TRUE(window.mask().isEmpty());
}

TEST(ConnectorNames, TellBuiltInPanels) {
  for (const char* name : {"eDP-1", "eDP", "LVDS-1", "LVDS1", "DSI-1"}) EXPECT_TRUE(isBuiltinConnector(name)) << name;
  for (const char* name : {"HDMI-A-1", "DP-1", "VGA-1", "screen", ""}) EXPECT_FALSE(isBuiltinConnector(name)) << name;
}

TEST(SoundServerThatHangs, LetsTheProgramEnd) {
  const QTemporaryDir folder;
  QLocalServer server;
  ASSERT_TRUE(server.listen(folder.filePath("native")));
  qputenv("PULSE_SERVER", ("unix:" + server.fullServerName()).toUtf8());
  QElapsedTimer timer;
  timer.start();
  CanberraSounds().play("bell");
  EXPECT_LT(timer.elapsed(), 10'000);
  qunsetenv("PULSE_SERVER");
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
