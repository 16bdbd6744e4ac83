// The X server's own screen saver, which blanks the screen after a second here.

#include <gtest/gtest.h>
#include <xcb/screensaver.h>

#include "platform/linux/X11ScreenSaver.h"
#include "tests/e2e/Desktop.h"

namespace ambrel {
namespace {

class ScreenSaverOnX11 : public testing::Test {
 protected:
  void SetUp() override {
    connection_ = connectToDesktop();
    watcher_ = connectToDesktop();
    ASSERT_TRUE(connection_ && watcher_);
    xcb_set_screen_saver(watcher_->xcb(), 1, 0, XCB_BLANKING_PREFERRED, XCB_EXPOSURES_ALLOWED);
    watcher_->flush();
  }
  void TearDown() override {
    xcb_set_screen_saver(watcher_->xcb(), 0, 0, XCB_BLANKING_DEFAULT, XCB_EXPOSURES_DEFAULT);
    xcb_force_screen_saver(watcher_->xcb(), XCB_SCREEN_SAVER_RESET);
    watcher_->flush();
  }
  bool isBlank() const {
    const XcbPtr<xcb_screensaver_query_info_reply_t> info(xcb_screensaver_query_info_reply(
        watcher_->xcb(), xcb_screensaver_query_info(watcher_->xcb(), watcher_->root()), nullptr));
    return info && info->state == XCB_SCREENSAVER_STATE_ON;
  }

  std::unique_ptr<X11Connection> connection_, watcher_;
};

TEST_F(ScreenSaverOnX11, BlanksNothingWhileItIsSuspended) {
  X11ScreenSaver screenSaver(connection_.get());
  ASSERT_TRUE(screenSaver.suspend(true));
  EXPECT_FALSE(waitFor([this] { return isBlank(); }, 2500));
  ASSERT_TRUE(screenSaver.suspend(false));
  EXPECT_TRUE(waitFor([this] { return isBlank(); }));
}

TEST_F(ScreenSaverOnX11, GoesOnWhenItsHolderIsGone) {
  ASSERT_TRUE(X11ScreenSaver(connection_.get()).suspend(true));
  connection_.reset();
  EXPECT_TRUE(waitFor([this] { return isBlank(); }));
}

}  // namespace
}  // namespace ambrel
