// The program in GNOME's compositor, whose windows go through XWayland there.

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QPoint>
#include <map>

#include "tests/e2e/keyboard/BarFixture.h"
#include "tests/e2e/wayland/Terminal.h"

namespace ambrel {
namespace {

// A pointer and keys, as Mutter gives them to those who serve remote desktops.
class RemoteDesktop {
 public:
  RemoteDesktop() {
    session_ = call("/org/gnome/Mutter/RemoteDesktop", service, "CreateSession", {}).value<QDBusObjectPath>().path();
    act("Start", {});
  }

  void moveTo(QPoint at) {
    // Only steps can be told, which end at the edges of the screen.
    act("NotifyPointerMotionRelative", {-9999.0, -9999.0});
    act("NotifyPointerMotionRelative", {double(at.x()), double(at.y())});
  }
  void click() {
    constexpr int leftButton = 0x110;
    for (const bool isDown : {true, false}) act("NotifyPointerButton", {leftButton, isDown});
  }
  void press(unsigned symbol) {
    for (const bool isDown : {true, false}) act("NotifyKeyboardKeysym", {symbol, isDown});
  }

 private:
  static constexpr const char* service = "org.gnome.Mutter.RemoteDesktop";

  static QVariant call(const QString& path, const QString& interface, const char* method,
                       const QVariantList& arguments) {
    auto message = QDBusMessage::createMethodCall(service, path, interface, method);
    message.setArguments(arguments);
    const QDBusMessage answer = QDBusConnection::sessionBus().call(message, QDBus::Block, 5000);
    EXPECT_EQ(answer.errorMessage().toStdString(), "") << method;
    return answer.arguments().value(0);
  }
  void act(const char* method, const QVariantList& arguments) {
    call(session_, QLatin1String(service) + ".Session", method, arguments);
  }

  QString session_;
};

class BarOnMutter : public BarFixture {
 protected:
  void send(const char* key) override {
    static const std::map<std::string, unsigned> symbols{{"Escape", 0xff1b}, {"Return", 0xff0d}};
    desktop_.press(symbols.at(key));
  }
  bool showsNothing() {
    return waitFor([&] { return visibleWindows().empty(); }, 15000);
  }
  bool hasKeyboard() {
    return waitFor([&] { return !activeWindow().isEmpty(); });
  }
  // Before that it takes no click, and does not hear that the pointer has left.
  static void comesIn() { QThread::msleep(700); }

  static constexpr QPoint middle{800, 300}, lowerEdge{800, 899}, upperEdge{800, 0};
  RemoteDesktop desktop_;
};

TEST_F(BarOnMutter, IsReachedByPointerAndKeyboardAndGivesThemBack) {
  expected_ = "Ambrel: this compositor shows no copies; they are seen while a program of X11 has the keyboard\n";
  const Terminal terminal(folder_ / "typed", {"--maximized"});
  const auto isTyped = [&](char letter) {
    return terminal.hears(letter, [&](char one) { desktop_.press(static_cast<unsigned>(one)); });
  };
  desktop_.moveTo(middle);
  ASSERT_TRUE(isTyped('a'));
  ASSERT_NO_FATAL_FAILURE(start({"water", "pomodoro"}));
  ASSERT_TRUE(showsNothing());

  desktop_.moveTo(lowerEdge);
  ASSERT_TRUE(waitFor([&] { return visibleWindows().size() == 1; })) << said();
  comesIn();
  const QRect bar = reader_.item(visibleWindows().front()).place;
  desktop_.moveTo({bar.left() + 110, lowerEdge.y() - 30});
  desktop_.click();
  ASSERT_TRUE(hasKeyboard()) << "no panel";
  desktop_.moveTo(middle);
  desktop_.click();
  EXPECT_TRUE(showsNothing()) << "a click elsewhere closes nothing";
  EXPECT_TRUE(isTyped('b'));

  desktop_.moveTo(upperEdge);
  EXPECT_TRUE(waitFor([&] { return !visibleWindows().empty(); })) << "no shelf";
  comesIn();
  desktop_.moveTo(middle + QPoint(0, 300));
  EXPECT_TRUE(showsNothing());

  wish("--reveal");
  ASSERT_TRUE(hasKeyboard());
  const QString window = activeWindow();
  ASSERT_TRUE(press("Return")) << said();
  EXPECT_TRUE(waitFor([&] { return hasKeyboard() && activeWindow() != window; })) << "no panel";
  ASSERT_TRUE(press("Escape"));
  EXPECT_TRUE(waitFor([&] { return activeWindow() == window; })) << "the bar does not get the keyboard back";
  ASSERT_TRUE(press("Escape"));
  EXPECT_TRUE(isTyped('c')) << "the terminal does not get it back";
  quit();
}

}  // namespace
}  // namespace ambrel
