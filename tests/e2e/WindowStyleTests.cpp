// Our windows under a real window manager and a real compositor.

#include <QWindow>
#include <algorithm>
#include <gtest/gtest.h>

#include "platform/linux/X11WindowStyle.h"
#include "tests/e2e/Desktop.h"

namespace ambrel {
namespace {

class WindowStyleOnX11 : public testing::Test {
 protected:
  WindowStyleOnX11() : connection_(connectToDesktop()) {}
  void SetUp() override { ASSERT_TRUE(connection_) << "no X server"; }

  std::vector<std::uint32_t> atoms(const QWindow& window, const char* property) const {
    return connection_->numbers(xcb_window_t(window.winId()), connection_->atom(property));
  }
  xcb_window_t activeWindow() const {
    const auto active = connection_->numbers(connection_->root(), connection_->atom("_NET_ACTIVE_WINDOW"));
    return active.empty() ? xcb_window_t{XCB_WINDOW_NONE} : active.front();
  }
  bool isAbove(const QWindow& window) const {
    const auto state = atoms(window, "_NET_WM_STATE");
    return std::ranges::find(state, connection_->atom("_NET_WM_STATE_ABOVE")) != state.end();
  }

  std::unique_ptr<X11Connection> connection_;
};

TEST_F(WindowStyleOnX11, EachRoleHasItsTypeAndItsFocus) {
  struct Case {
    WindowRole role;
    const char* type;
    bool takesFocus;
  };
  const Case cases[] = {{WindowRole::dock, "_NET_WM_WINDOW_TYPE_DOCK", false},
                        {WindowRole::panel, "_NET_WM_WINDOW_TYPE_UTILITY", true},
                        {WindowRole::bubble, "_NET_WM_WINDOW_TYPE_NOTIFICATION", false}};
  X11WindowStyle style(connection_.get());
  const Client terminal("xterm", {"-geometry", "40x10+900+50", "-e", "sleep", "60"});
  ASSERT_TRUE(waitFor([&] { return activeWindow() != XCB_WINDOW_NONE; }));
  const xcb_window_t before = activeWindow();
  for (const Case& test : cases) {
    QWindow window;
    style.prepare(window, test.role);
    window.setGeometry(100, 700, 400, 80);
    window.show();
    ASSERT_TRUE(waitFor([&] { return window.isExposed(); })) << test.type;
    EXPECT_TRUE(waitFor([&] { return isAbove(window); })) << test.type;
    ASSERT_FALSE(atoms(window, "_NET_WM_WINDOW_TYPE").empty());
    EXPECT_EQ(atoms(window, "_NET_WM_WINDOW_TYPE").front(), connection_->atom(test.type));
    EXPECT_EQ(window.position(), QPoint(100, 700)) << test.type;
    if (test.takesFocus) {
      window.requestActivate();
      EXPECT_TRUE(waitFor([&] { return activeWindow() == window.winId(); })) << test.type;
      window.hide();
      EXPECT_TRUE(waitFor([&] { return activeWindow() == before; })) << "the focus does not go back";
    } else {
      run("xdotool", {"mousemove", "300", "740", "click", "1"});
      EXPECT_EQ(activeWindow(), before) << test.type;
    }
  }
}

TEST_F(WindowStyleOnX11, TellsWhenACompositorComesAndGoes) {
  X11WindowStyle style(connection_.get());
  EXPECT_FALSE(style.isCompositing());
  std::vector<bool> heard;
  style.setCompositingHandler([&](bool is) { heard.push_back(is); });
  Client compositor("picom", {"--backend", "xrender", "--config", AMBREL_CASES "/e2e/picom.conf"});
  ASSERT_TRUE(waitFor([&] { return style.isCompositing(); }));
  EXPECT_TRUE(X11WindowStyle(connection_.get()).isCompositing());
  compositor.stop();
  EXPECT_TRUE(waitFor([&] { return !style.isCompositing(); }));
  EXPECT_EQ(heard, (std::vector<bool>{true, false}));
}

}  // namespace
}  // namespace ambrel
