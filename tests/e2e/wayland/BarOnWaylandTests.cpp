// The program under a real compositor that puts its windows at the edges of the screens: what the screens then show.

#include <QImage>
#include <algorithm>
#include <map>

#include "tests/e2e/keyboard/BarFixture.h"
#include "tests/e2e/wayland/Terminal.h"
#include "tests/e2e/wayland/VirtualInput.h"
#include "tests/fakes/FakeKeyPortal.h"

namespace ambrel {
namespace {

constexpr const char* first = "HEADLESS-1";
constexpr int margin = 8;
constexpr int lowerThanAnyPanel = 160;

QImage pictureOf(const QString& screen) {
  const Outcome taken = hostDisplay().isEmpty() ? run("grim", {"-t", "ppm", "-o", screen, "-"})
                                                : runOnHost({"import", "-silent", "-window", "root", "ppm:-"});
  return QImage::fromData(QByteArray::fromStdString(taken.output), "PPM");
}

class BarOnWayland : public BarFixture {
 protected:
  void SetUp() override {
    BarFixture::SetUp();
    input_.moveTo({}, {1, 1});
    look(first);
    ASSERT_FALSE(size().isEmpty()) << "no picture of the screen";
    moveTo(middle());
  }

  // Returns when the bar has been out once, so that it hears of the pointer from then on.
  void start(const std::vector<std::string>& widgets) {
    ASSERT_NO_FATAL_FAILURE(BarFixture::start(widgets));
    wish("--reveal");
    ASSERT_TRUE(waitFor([&] { return !activeWindow().isEmpty(); })) << said();
    ASSERT_TRUE(press("Escape")) << said();
    ASSERT_TRUE(leaves()) << place();
  }
  void send(const char* key) override { input_.press(key); }
  // `screen` has all of the desktop, or its left part.
  void moveTo(QPoint at, const QString& screen = first) { input_.moveTo(pointed_ = at, size(screen)); }
  void click(QPoint at) {
    moveTo(at);
    input_.click();
  }
  void set(const char* setting, const char* value) {
    const QString home = QString::fromStdString((folder_ / "home").string());
    const Outcome done = run("env", {"-u", "XDG_CONFIG_HOME", "-u", "XDG_DATA_HOME", "HOME=" + home, TILEBAYCTL_PROGRAM,
                                     "settings", "set", setting, value});
    EXPECT_EQ(done.status, 0) << done.output;
  }

  // As the screen is before the program comes, with the pointer in its corner. KWin lets a window fade that a test
  // before had.
  void look(const QString& screen) {
    waitFor([&] {
      const QImage last = std::exchange(before_[screen], pictureOf(screen));
      QThread::msleep(50);
      return last == before_[screen];
    });
  }
  QSize size(const QString& screen = first) const { return before_.at(screen).size(); }
  QPoint middle() const { return {size().width() / 2, size().height() / 3}; }
  QPoint lowerEdge(const QString& screen = first) const {
    return {size(screen).width() / 2, size(screen).height() - 1};
  }

  // The place of what the program shows, without its shadow and the pointer; empty while it shows nothing.
  QRect shown(const QString& screen = first) const {
    const QImage& before = before_.at(screen);
    const QImage now = pictureOf(screen).convertToFormat(before.format());
    const QRect arrow(0, 0, 32, 32), arrowNow = arrow.translated(pointed_ - QPoint(8, 8));
    QRect place;
    for (int y = 0; y < std::min(now.height(), before.height()); ++y)
      for (int x = 0; x < now.width(); ++x) {
        if (arrow.contains(x, y) || arrowNow.contains(x, y)) continue;
        const QRgb a = now.pixel(x, y), b = before.pixel(x, y);
        if (std::abs(qGreen(a) - qGreen(b)) > visible || std::abs(qBlue(a) - qBlue(b)) > visible)
          place |= QRect(x, y, 1, 1);
      }
    return place;
  }
  // The bar alone, at rest at this edge.
  bool isAt(Qt::Edge edge, const QString& onScreen) {
    last_ = shown(onScreen);
    const QRect screen(QPoint(), size(onScreen));
    const QPoint off = last_.center() - screen.center();
    if (last_.isEmpty()) return false;
    switch (edge) {
      case Qt::BottomEdge:
        return screen.bottom() - last_.bottom() == margin && std::abs(off.x()) <= 1 &&
               last_.height() < lowerThanAnyPanel;
      case Qt::LeftEdge:
        return last_.left() == margin && std::abs(off.y()) <= 1;
      default:
        return screen.right() - last_.right() == margin && std::abs(off.y()) <= 1;
    }
  }
  bool comesTo(Qt::Edge edge, const QString& screen = first) {
    return waitFor([&] { return isAt(edge, screen); }, 15000);
  }
  bool leaves(const QString& screen = first) {
    return waitFor([&] { return (last_ = shown(screen)).isEmpty(); });
  }
  bool hasPanel() {
    return waitFor([&] { return (last_ = shown()).height() > lowerThanAnyPanel; });
  }
  std::string place() const {
    return std::to_string(last_.x()) + ',' + std::to_string(last_.y()) + ' ' + std::to_string(last_.width()) + 'x' +
           std::to_string(last_.height()) + '\n';
  }

  static constexpr int visible = 40;
  VirtualInput input_;
  std::map<QString, QImage> before_;
  QRect last_;  // that was seen
  QPoint pointed_;
};

TEST_F(BarOnWayland, ComesOutAtItsEdgeAndLeavesWithThePointer) {
  struct Edge {
    const char* name;
    Qt::Edge edge;
    QPoint at;
  };
  ASSERT_NO_FATAL_FAILURE(start({"water", "pomodoro"}));
  const int right = size().width() - 1, halfway = size().height() / 2;
  for (const auto& [name, edge, at] :
       {Edge{"bottom", Qt::BottomEdge, lowerEdge()}, Edge{"left", Qt::LeftEdge, {0, halfway}},
        Edge{"right", Qt::RightEdge, {right, halfway}}}) {
    SCOPED_TRACE(name);
    set("dockEdge", name);
    moveTo(at);
    EXPECT_TRUE(comesTo(edge)) << place() << said();
    moveTo(middle());
    ASSERT_TRUE(leaves()) << place();
  }
  quit();
}

TEST_F(BarOnWayland, AClickOpensAPanelAndOneElsewhereClosesIt) {
  ASSERT_NO_FATAL_FAILURE(start({"water", "pomodoro"}));
  moveTo(lowerEdge());
  ASSERT_TRUE(comesTo(Qt::BottomEdge)) << place() << said();
  const QPoint tile(last_.left() + last_.width() / 4, last_.center().y());
  click(tile);
  ASSERT_TRUE(hasPanel()) << place() << said();
  EXPECT_TRUE(press("Escape"));
  ASSERT_TRUE(comesTo(Qt::BottomEdge)) << place();
  click(tile);
  ASSERT_TRUE(hasPanel()) << place();
  click(middle() / 3);
  EXPECT_TRUE(leaves()) << place();
  quit();
}

TEST_F(BarOnWayland, ThePointerAtTheUpperEdgeBringsTheShelf) {
  ASSERT_NO_FATAL_FAILURE(start({"water"}));
  moveTo({size().width() / 2, 0});
  ASSERT_TRUE(hasPanel()) << place() << said();
  EXPECT_LT(last_.top(), size().height() / 4);
  moveTo({size().width() / 20, size().height() * 3 / 4});
  ASSERT_TRUE(leaves()) << place();
  wish("--toggle-clipboard");
  ASSERT_TRUE(hasPanel()) << place();
  EXPECT_TRUE(waitFor([&] { return !activeWindow().isEmpty(); })) << "it does not get the keyboard";
  EXPECT_TRUE(press("Escape"));
  EXPECT_TRUE(leaves()) << place();
  quit();
}

TEST_F(BarOnWayland, KeysReachTheTilesAndAreGivenBack) {
  ASSERT_NO_FATAL_FAILURE(start({"water", "pomodoro"}));
  const Terminal terminal(folder_ / "typed");
  const auto hasKeyboard = [&](char letter) {
    return terminal.hears(letter, [&](char one) { input_.type(QString(QLatin1Char(one))); });
  };
  ASSERT_TRUE(hasKeyboard('a'));
  wish("--reveal");
  ASSERT_TRUE(waitFor([&] { return !activeWindow().isEmpty(); })) << said();
  const QString bar = activeWindow();
  // Past the first tile and its button.
  for (int i = 0; i < 5 && !focused().name.startsWith("Focus"); ++i) ASSERT_TRUE(press("Right")) << said();
  EXPECT_TRUE(focused().name.startsWith("Focus")) << focused().name.toStdString();
  ASSERT_TRUE(press("Return"));
  EXPECT_TRUE(waitFor([&] { return !activeWindow().isEmpty() && activeWindow() != bar; })) << "no panel";
  ASSERT_TRUE(press("Escape"));
  EXPECT_TRUE(waitFor([&] { return activeWindow() == bar; })) << "the bar does not get the keyboard back";
  EXPECT_TRUE(waitFor([&] { return focused().name.startsWith("Focus"); })) << focused().name.toStdString();
  ASSERT_TRUE(press("Escape"));
  EXPECT_TRUE(hasKeyboard('b')) << "the terminal does not get it back";
  quit();
}

TEST_F(BarOnWayland, SettingsAsksAgainForRefusedKeysAndChangesThem) {
  // The screen reader answers for all objects of the usual connection.
  FakeKeyPortal portal(QDBusConnection::connectToBus(QDBusConnection::SessionBus, "portal"));
  portal.response = 1;
  ASSERT_NO_FATAL_FAILURE(start({"water"}));
  ASSERT_TRUE(waitFor([&] { return portal.asked("BindShortcuts") == 1; })) << said();
  const auto tabTo = [&](const char* name) {
    for (int i = 0; i < 30 && focused().name != name && press("Tab"); ++i) continue;
    return focused().name == name;
  };
  wish("--settings");
  ASSERT_TRUE(waitFor([&] { return !activeWindow().isEmpty(); })) << said();
  reader_.settle();
  input_.type("hot key");
  ASSERT_TRUE(tabTo("Ask the desktop for the keys")) << focused().name.toStdString() << said();
  portal.response = 0;
  for (const PortalShortcut& key : portal.offered)
    portal.bound.append({key.id, {{"trigger_description", "Meta+F" + QString::number(portal.bound.size())}}});
  ASSERT_TRUE(press("Return"));
  ASSERT_TRUE(waitFor([&] { return portal.asked("ListShortcuts") == 1; })) << said();
  ASSERT_TRUE(tabTo("Change the keys in the desktop's settings")) << focused().name.toStdString() << said();
  ASSERT_TRUE(press("Return"));
  EXPECT_TRUE(waitFor([&] { return portal.asked("ConfigureShortcuts") == 1; })) << said();
  const QString settings = activeWindow();
  portal.press(portal.session, "toggle-clipboard");
  EXPECT_TRUE(waitFor([&] { return !activeWindow().isEmpty() && activeWindow() != settings; })) << "no shelf";
  EXPECT_TRUE(press("Escape"));
  // While the shelf closes.
  quit();
}

TEST_F(BarOnWayland, ComesBackWithTheCompositor) {
  ASSERT_NO_FATAL_FAILURE(start({"water"}));
  set("barAlwaysVisible", "true");
  ASSERT_TRUE(comesTo(Qt::BottomEdge)) << place() << said();
  ASSERT_EQ(run("pkill", {"-KILL", "-P", qEnvironmentVariable("VIRTUAL_DESKTOP_COMPOSITOR_PID")}).status, 0);
  ASSERT_TRUE(leaves()) << place();
  EXPECT_TRUE(comesTo(Qt::BottomEdge)) << place() << said();
  wish("--settings");
  EXPECT_TRUE(waitFor([&] { return !activeWindow().isEmpty(); })) << said();
  wish("--quit");
  EXPECT_TRUE(waitFor([&] { return !lives(); }));
  EXPECT_EQ(program_.exitStatus(), QProcess::NormalExit) << said();
}

TEST_F(BarOnWayland, GoesToTheScreenThatIsLeft) {
  const auto tell = [](const char* command) { EXPECT_EQ(run("swaymsg", {command}).status, 0) << command; };
  const QString second = "HEADLESS-2";
  tell("create_output");
  look(second);
  ASSERT_NO_FATAL_FAILURE(start({"water"}));
  set("barAlwaysVisible", "true");
  ASSERT_TRUE(comesTo(Qt::BottomEdge)) << place() << said();
  tell("output HEADLESS-1 disable");
  moveTo(middle(), second);
  EXPECT_TRUE(comesTo(Qt::BottomEdge, second)) << "the bar does not follow: " << place();
  set("barAlwaysVisible", "false");
  EXPECT_TRUE(leaves(second)) << place();
  moveTo(lowerEdge(second), second);
  EXPECT_TRUE(comesTo(Qt::BottomEdge, second)) << "nothing at the edge of the screen that is left: " << place();
  quit();
}

}  // namespace
}  // namespace ambrel
