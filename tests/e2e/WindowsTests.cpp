// Our windows under one window manager after another: they stay where they are put, and nothing of ours has the
// keyboard unless the user wants it to; and under a real compositor.

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWindow>
#include <algorithm>
#include <csignal>
#include <gtest/gtest.h>

#include "platform/linux/X11WindowStyle.h"
#include "platform/linux/X11Workspace.h"
#include "tests/e2e/Desktop.h"

namespace ambrel {
namespace {

class TypedWindow : public QWindow {
 public:
  QString typed;
  std::optional<bool> answer;  // to the wish for the keyboard
  int presses = 0;
  bool isPrepared = true;  // for each key that has come

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    typed += event->text();
    isPrepared = isPrepared && answer;
  }
  void mousePressEvent(QMouseEvent*) override { ++presses; }
};

// A terminal in which somebody types; what reaches it goes to a file at once.
class Terminal {
 public:
  Terminal() {
    writeFile(folder_.filePath("keep"), "stty -icanon -echo min 1; : >ready; exec cat >typed\n");
    client_ = std::make_unique<Client>(
        "xterm", QStringList{"-geometry", "60x20+200+150", "-e", "cd " + folder_.path() + " && exec sh ./keep"});
  }
  bool isReady() const { return QFile::exists(folder_.filePath("ready")); }
  std::string typed() const {
    QFile file(folder_.filePath("typed"));
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
  }

 private:
  QTemporaryDir folder_;
  std::unique_ptr<Client> client_;
};

class WindowsOnManager : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(connection_) << "no X server";
    // Where the window under the pointer has the keyboard, that is the terminal.
    run("xdotool", {"mousemove", "400", "300"});
    terminal_ = std::make_unique<Terminal>();
    const bool hasManager = !numbers(connection_->root(), "_NET_SUPPORTING_WM_CHECK").empty();
    ASSERT_TRUE(waitFor(
        [&] { return terminal_->isReady() && (!hasManager || (active() != XCB_WINDOW_NONE && hasFocus(active()))); }));
    terminalWindow_ = hasManager ? active() : std::stoul(run("xdotool", {"search", "--class", "xterm"}).output);
  }
  void TearDown() override {
    terminal_.reset();
    // The next one may get its number.
    waitFor([&] { return place(terminalWindow_).isNull() && active() != terminalWindow_; }, 1000);
  }

  std::vector<std::uint32_t> numbers(xcb_window_t window, const char* property) {
    return connection_->numbers(window, connection_->atom(property));
  }
  xcb_window_t active() {
    const auto list = numbers(connection_->root(), "_NET_ACTIVE_WINDOW");
    return list.empty() ? xcb_window_t{XCB_WINDOW_NONE} : list.front();
  }
  bool hasFocus(xcb_window_t window) { return connection_->focused() == window; }
  // On the screen, without its border; nothing while it cannot be seen.
  QRect place(xcb_window_t window) {
    xcb_connection_t* xcb = connection_->xcb();
    const XcbPtr<xcb_get_window_attributes_reply_t> attributes(
        xcb_get_window_attributes_reply(xcb, xcb_get_window_attributes(xcb, window), nullptr));
    const XcbPtr<xcb_get_geometry_reply_t> size(xcb_get_geometry_reply(xcb, xcb_get_geometry(xcb, window), nullptr));
    const XcbPtr<xcb_translate_coordinates_reply_t> corner(xcb_translate_coordinates_reply(
        xcb, xcb_translate_coordinates(xcb, window, connection_->root(), 0, 0), nullptr));
    connection_->repliesWereRead();
    if (!attributes || attributes->map_state != XCB_MAP_STATE_VIEWABLE || !size || !corner || size->border_width)
      return {};
    return {corner->dst_x, corner->dst_y, size->width, size->height};
  }
  // Whether a window that is shown there gets the keyboard that it asks for.
  bool takes(TypedWindow& window, WindowRole role, const QRect& frame) {
    style_.prepare(window, role);
    style_.place(window, frame);
    window.show();
    style_.activate(window, [&window](bool isActive) { window.answer = isActive; });
    return waitFor([&] { return window.answer.has_value(); }) && *window.answer;
  }
  static void tellManager(int signal) {
    if (const pid_t manager = qEnvironmentVariableIntValue("VIRTUAL_DESKTOP_WM_PID"); manager > 0)
      kill(manager, signal);
  }
  bool types(const char* text) {
    run("xdotool", {"type", text});
    expected_ += text;
    return waitFor([&] { return terminal_->typed() == expected_; });
  }

  std::unique_ptr<X11Connection> connection_ = connectToDesktop();
  X11WindowStyle style_{connection_.get()};
  X11Workspace workspace_{connection_.get(), "/proc", {}};
  std::unique_ptr<Terminal> terminal_;
  xcb_window_t terminalWindow_ = XCB_WINDOW_NONE;
  std::string expected_;
};

const QRect barFrame(300, 820, 1000, 72), panelFrame(500, 400, 420, 380);

TEST_F(WindowsOnManager, WhatComesByItselfTakesNoKeys) {
  ASSERT_TRUE(types("a"));
  for (const WindowRole role : {WindowRole::bubble, WindowRole::dock, WindowRole::panel, WindowRole::bubble}) {
    TypedWindow window;
    style_.prepare(window, role);
    style_.setTakesKeys(window, false);
    style_.place(window, role == WindowRole::dock ? barFrame : panelFrame);
    window.show();
    window.raise();
    EXPECT_TRUE(types("b")) << int(role);
    ASSERT_TRUE(waitFor([&] { return window.isExposed(); })) << int(role);
    EXPECT_TRUE(types("c")) << int(role);
    window.hide();
    EXPECT_TRUE(types("d")) << int(role);
    EXPECT_EQ(window.typed, QString());
  }
}

TEST_F(WindowsOnManager, TheyAreWhereTheyArePutAndMoveNothing) {
  QRect terminal;
  for (const WindowRole role : {WindowRole::dock, WindowRole::panel, WindowRole::bubble}) {
    QWindow window;
    style_.prepare(window, role);
    const QRect frame = role == WindowRole::dock ? barFrame : panelFrame;
    style_.place(window, frame);
    // The first showing may be what tells that the window manager is not to be asked.
    for (int showing = 0; showing < 2; ++showing) {
      window.show();
      const auto id = xcb_window_t(window.winId());
      EXPECT_TRUE(waitFor([&] { return place(id) == frame; }, showing == 0 ? 1000 : 8000) || showing == 0) << int(role);
      waitFor([&] { return place(id) != frame; }, 400);
      if (showing == 0) {
        window.hide();
        continue;
      }
      EXPECT_EQ(place(id), frame) << int(role);
      if (terminal.isNull()) terminal = place(terminalWindow_);
      EXPECT_EQ(place(terminalWindow_), terminal) << "another window was moved by " << int(role);
      if (!window.flags().testFlag(Qt::X11BypassWindowManagerHint)) {
        for (const char* state : {"_NET_WM_STATE_ABOVE", "_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER"}) {
          EXPECT_TRUE(waitFor([&] {
            const auto states = numbers(id, "_NET_WM_STATE");
            return std::ranges::find(states, connection_->atom(state)) != states.end();
          })) << state;
        }
        EXPECT_TRUE(waitFor([&] {
          const auto desktop = numbers(id, "_NET_WM_DESKTOP");
          return desktop.empty() || desktop.front() == 0xffffffff;
        })) << "it is on one workspace";
      }
      window.hide();
    }
  }
}

TEST_F(WindowsOnManager, OneThatTheManagerHadForAMomentTakesClicks) {
  // Shown before it is known what the window manager does with it.
  X11WindowStyle style(connection_.get());
  TypedWindow window;
  style.prepare(window, WindowRole::dock);
  style.place(window, barFrame);
  style.setInputRect(window, 0, 0, barFrame.width(), barFrame.height() / 2);
  window.show();
  waitFor([&] { return window.flags().testFlag(Qt::X11BypassWindowManagerHint); }, 1000);
  ASSERT_TRUE(waitFor([&] { return place(xcb_window_t(window.winId())) == barFrame; }));
  const auto click = [](int y) { run("xdotool", {"mousemove", "700", QString::number(y), "click", "1"}); };
  click(barFrame.center().y() + 20);
  click(barFrame.top() + 10);
  EXPECT_TRUE(waitFor([&] { return window.presses > 0; }));
  EXPECT_EQ(window.presses, 1);
}

TEST_F(WindowsOnManager, AKeyBringsTheKeyboardAndItGoesBack) {
  ASSERT_TRUE(types("a"));
  for (const WindowRole role : {WindowRole::dock, WindowRole::panel, WindowRole::dock}) {
    TypedWindow window;
    style_.prepare(window, role);
    style_.place(window, role == WindowRole::dock ? barFrame : panelFrame);
    window.show();
    window.raise();
    style_.activate(window, [&](bool isActive) { window.answer = isActive; });
    // The key is under way before the program hears that it has the keyboard.
    ASSERT_TRUE(waitFor([&] {
      QThread::msleep(20);
      return hasFocus(xcb_window_t(window.winId()));
    })) << int(role);
    QProcess::execute("xdotool", {"type", "x"});
    EXPECT_TRUE(waitFor([&] { return window.typed == "x"; })) << int(role);
    EXPECT_TRUE(window.isPrepared) << "it hears of its keyboard after the first key, " << int(role);
    EXPECT_EQ(window.answer, true) << int(role);
    if (role == WindowRole::dock) {
      style_.setTakesKeys(window, false);
      style_.giveBack(window);
      workspace_.activateLast();
    } else {
      window.hide();
    }
    EXPECT_TRUE(waitFor([&] { return !window.isActive(); })) << int(role);
    EXPECT_TRUE(types("b")) << int(role);
  }
}

TEST_F(WindowsOnManager, ABusyManagerGivesTheKeyboardToNobodyTooLate) {
  terminal_.reset();
  waitFor([&] { return place(terminalWindow_).isNull() && active() != terminalWindow_; }, 1000);
  TypedWindow panel, cover;
  ASSERT_TRUE(takes(panel, WindowRole::panel, panelFrame));
  tellManager(SIGSTOP);
  panel.hide();
  const bool isTaken = takes(cover, WindowRole::cover, barFrame);
  tellManager(SIGCONT);
  EXPECT_TRUE(isTaken);
  EXPECT_FALSE(waitFor([&] { return !cover.isActive(); }, 500));
}

class WindowStyleOnX11 : public X11Test {
 protected:
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
