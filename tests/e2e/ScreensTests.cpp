// Screens of a real X server, and the edges that a real panel reserves.

#include <QGuiApplication>
#include <QWindow>
#include <gtest/gtest.h>

#include "platform/linux/X11Screens.h"
#include "platform/linux/X11WindowStyle.h"
#include "tests/e2e/Desktop.h"

namespace ambrel {
namespace {

class ScreensOnX11 : public testing::Test {
 protected:
  ScreensOnX11() : connection_(connectToDesktop()) {}
  void SetUp() override {
    ASSERT_TRUE(connection_) << "no X server";
    ASSERT_TRUE(folder_.isValid());
    writeFile(folder_.filePath("tint2rc"),
              "panel_items = S\npanel_position = bottom center horizontal\npanel_size = 100% 30\n"
              "strut_policy = follow_size\n");
  }
  void TearDown() override {
    run("xrandr", {"--delmonitor", "eDP-1"});
    run("xrandr", {"--delmonitor", "HDMI-7"});
    waitFor([] { return QGuiApplication::screens().size() == 1; });
  }

  QTemporaryDir folder_;
  std::unique_ptr<X11Connection> connection_;
};

TEST_F(ScreensOnX11, APanelOfAnotherProgramTakesItsEdge) {
  X11Screens screens(connection_.get());
  ASSERT_EQ(screens.list().size(), 1u);
  const Rect whole = screens.list().front().frame;
  EXPECT_EQ(whole, (Rect{0, 0, 1600, 900}));
  EXPECT_EQ(screens.list().front().visibleFrame, whole);
  EXPECT_EQ(screens.mainHeight(), 900);
  int changes = 0;
  screens.setChangeHandler([&] { ++changes; });

  Client panel("tint2", {"-c", folder_.filePath("tint2rc")});
  EXPECT_TRUE(waitFor([&] { return screens.list().front().visibleFrame == Rect{0, 30, 1600, 870}; }));
  EXPECT_EQ(screens.list().front().frame, whole);
  EXPECT_GE(changes, 1);
  panel.stop();
  EXPECT_TRUE(waitFor([&] { return screens.list().front().visibleFrame == whole; }));
}

TEST_F(ScreensOnX11, OurOwnWindowsTakeNothing) {
  X11Screens screens(connection_.get());
  X11WindowStyle style(connection_.get());
  QWindow window;
  style.prepare(window, WindowRole::dock);
  window.setGeometry(0, 800, 1600, 100);
  window.create();
  const std::uint32_t strut[12] = {0, 0, 0, 100, 0, 0, 0, 0, 0, 0, 0, 1599};
  xcb_change_property(connection_->xcb(), XCB_PROP_MODE_REPLACE, xcb_window_t(window.winId()),
                      connection_->atom("_NET_WM_STRUT_PARTIAL"), XCB_ATOM_CARDINAL, 32, 12, strut);
  connection_->flush();
  window.show();
  // The window manager counts it; we do not.
  const xcb_atom_t workArea = connection_->atom("_NET_WORKAREA");
  ASSERT_TRUE(waitFor([&] {
    const auto area = connection_->numbers(connection_->root(), workArea);
    return area.size() >= 4 && area[3] == 800;
  }));
  QCoreApplication::processEvents();
  EXPECT_EQ(screens.list().front().visibleFrame, (Rect{0, 0, 1600, 900}));
}

TEST_F(ScreensOnX11, ScreensComeAndGo) {
  X11Screens screens(connection_.get());
  int changes = 0;
  screens.setChangeHandler([&] { ++changes; });
  // The lower right one stands 100 below the top.
  ASSERT_EQ(run("xrandr", {"--setmonitor", "eDP-1", "800/200x900/225+0+0", "screen"}).status, 0);
  ASSERT_EQ(run("xrandr", {"--setmonitor", "HDMI-7", "800/200x800/200+800+100", "none"}).status, 0);
  ASSERT_TRUE(waitFor([&] { return screens.list().size() == 2; }));
  EXPECT_GE(changes, 1);
  const auto both = screens.list();
  for (const ScreenInfo& screen : both) {
    const bool isOwn = screen.name == "eDP-1";
    EXPECT_EQ(screen.isBuiltin, isOwn) << screen.name;
    EXPECT_EQ(flipped(screen.frame, screens.mainHeight()), isOwn ? (Rect{0, 0, 800, 900}) : (Rect{800, 100, 800, 800}));
  }
  EXPECT_EQ(both.front().frame.minY(), 0) << "the main screen stands at the bottom";
  ASSERT_EQ(run("xrandr", {"--delmonitor", "HDMI-7"}).status, 0);
  EXPECT_TRUE(waitFor([&] { return screens.list().size() == 1; }));
}

}  // namespace
}  // namespace ambrel
