#pragma once
// The whole program on the test's desktop, with somebody at its keyboard and its pointer who hears what a screen reader
// says.

#include <QSet>

#include "tests/e2e/keyboard/BarFixture.h"

namespace ambrel {

// More stops than any panel has.
inline constexpr int mostStops = 200;
// The ring's colours, in the dark scheme and in the light one.
inline constexpr std::array<std::uint32_t, 2> ringColors{0x7DA7FF, 0x2458D3};

class Keyboard : public BarFixture {
 protected:
  void SetUp() override {
    ASSERT_NO_FATAL_FAILURE(BarFixture::SetUp());
    connection_ = connectToDesktop();
    ASSERT_TRUE(connection_);
    keys_.start("xdotool", {"-"});
    ASSERT_TRUE(keys_.waitForStarted());
  }
  void TearDown() override {
    keys_.closeWriteChannel();
    keys_.waitForFinished(2000);
    BarFixture::TearDown();
  }

  void start(const std::vector<std::string>& widgets, const std::string& modelServer = "http://127.0.0.1:1/") {
    ASSERT_NO_FATAL_FAILURE(BarFixture::start(widgets, modelServer));
    wish("--reveal");
    ASSERT_TRUE(waitFor([&] { return !visibleWindows().empty(); })) << said();
  }

  void send(const char* keys) override {
    keys_.write(QByteArray("key ") + keys + '\n');
    keys_.waitForBytesWritten(1000);
  }
  // Toasts, tips and bubbles do not take the keyboard.
  bool isMessage(const QString& path, int depth = 3) const {
    if (const unsigned role = reader_.item(path).role;
        role == ScreenReader::notification || role == ScreenReader::toolTip)
      return true;
    if (depth == 0) return false;
    const auto below = reader_.children(path);
    return std::ranges::any_of(below, [&](const QString& child) { return isMessage(child, depth - 1); });
  }
  // Whether anything below an item, or the item itself, is called so.
  bool says(const QString& path, const QString& text) const {
    if (reader_.item(path).name.contains(text)) return true;
    const auto below = reader_.children(path);
    return std::ranges::any_of(below, [&](const QString& child) { return says(child, text); });
  }
  void type(const char* text) { run("xdotool", {"type", "--delay", "20", QString::fromUtf8(text)}); }
  // The window that has come since and is for the keyboard; it has it, too.
  std::optional<QString> opened(const std::vector<QString>& before) {
    for (const QString& window : visibleWindows()) {
      if (std::ranges::find(before, window) != before.end() || isMessage(window) ||
          reader_.item(window).name == QLatin1String("Tilebay"))  // the bar comes out with a panel
        continue;
      EXPECT_TRUE(waitFor([&] { return activeWindow() == window; })) << "it does not get the keyboard";
      reader_.settle();
      return window;
    }
    return std::nullopt;
  }

  bool hasRing(const ScreenReader::Item& item) const {
    const bool isText = item.role == ScreenReader::text;
    // Rings are up to four pixels around an item or a few within it; a field's is around its symbol and button too.
    const QRect around = isText ? item.place.adjusted(-40, -14, 40, 14) : item.place.adjusted(-6, -6, 6, 6);
    // A wide button can be of the ring's colour itself; the ring of a round or a square one is on its edge.
    const int edge = item.role != ScreenReader::pushButton ? 8 : item.place.width() <= 40 ? 4 : 0;
    const QRect within = item.place.adjusted(edge, edge, -edge, -edge);
    const QRect grabbed = around.intersected(QRect(0, 0, 1600, 900));
    if (grabbed.isEmpty()) return false;
    auto* xcb = connection_->xcb();
    const auto cookie = xcb_get_image(xcb, XCB_IMAGE_FORMAT_Z_PIXMAP,
                                      xcb_setup_roots_iterator(xcb_get_setup(xcb)).data->root, int16_t(grabbed.x()),
                                      int16_t(grabbed.y()), uint16_t(grabbed.width()), uint16_t(grabbed.height()), ~0u);
    const std::unique_ptr<xcb_get_image_reply_t, decltype(&std::free)> image(xcb_get_image_reply(xcb, cookie, nullptr),
                                                                             &std::free);
    if (!image) return false;
    const auto* pixels = reinterpret_cast<const std::uint32_t*>(xcb_get_image_data(image.get()));
    int count = 0;
    for (int y = 0; y < grabbed.height(); ++y)
      for (int x = 0; x < grabbed.width(); ++x)
        if (!within.contains(grabbed.x() + x, grabbed.y() + y) &&
            std::ranges::count(ringColors, pixels[y * grabbed.width() + x] & 0xffffff))
          ++count;
    return count >= std::max(item.place.width(), item.place.height()) / 2;
  }
  // What every stop of the keyboard must be. A menu's row is lit up instead; rows of a list can have moved on.
  void expectSensible(const ScreenReader::Item& item) {
    EXPECT_FALSE(item.name.isEmpty()) << "a stop without a name, role " << item.role;
    const bool isRow =
        item.role == ScreenReader::menuItem || item.role == ScreenReader::list || item.role == ScreenReader::listItem;
    EXPECT_TRUE(isRow || waitFor([&] { return hasRing(reader_.item(item.path)); }, 4000))
        << (shoot(), "no ring on ") << item.name.toStdString();
  }

  // Walks through the window by Tab until it comes round.
  void walk() {
    QSet<QString> seen;
    for (int i = 0; i < mostStops; ++i) {
      const int changes = reader_.focusChanges();
      if (!press("Tab")) break;
      // A panel that is still coming in has nothing for the keyboard yet.
      if (!waitFor([&] { return reader_.focusChanges() > changes; }, 300) && i < 3) continue;
      reader_.settle();
      const auto item = focused();
      if (seen.contains(item.path)) break;
      seen.insert(item.path);
      expectSensible(item);
    }
    EXPECT_FALSE(seen.isEmpty()) << "Tab finds nothing";
    EXPECT_LT(seen.size(), mostStops) << "Tab does not come round";
  }
  void walkAndClose(const QString& window) {
    walk();
    shoot();
    // What is typed in a field goes first.
    for (int i = 0; i < 3 && isVisible(window) && press("Escape"); ++i)
      waitFor([&] { return !isVisible(window); }, 1500);
    // A review asks first.
    if (isVisible(window) && pressUntil("Tab", "Close the review") && press("Return"))
      waitFor([&] { return !isVisible(window); }, 1500);
    EXPECT_FALSE(isVisible(window)) << "Escape does not close it";
  }
  bool isVisible(const QString& window) const {
    const auto all = visibleWindows();
    return std::ranges::find(all, window) != all.end();
  }

  // Whether the key leads to the item of that name.
  bool pressUntil(const char* key, const char* name) {
    for (int i = 0; i < mostStops && press(key); ++i)
      if (focused().name == QString::fromUtf8(name)) return true;
    return false;
  }

  void takeBar() {
    send("ctrl+alt+super+d");
    const auto isThere = [&] { return bar_.isEmpty() ? !activeWindow().isEmpty() : activeWindow() == bar_; };
    ASSERT_TRUE(waitFor([&] { return isThere() || !lives(); }) && lives()) << said();
    bar_ = activeWindow();
    reader_.settle();
  }

  // With AMBREL_SHOTS=FOLDER, a picture of the screen.
  void shoot() {
    const QString target = qEnvironmentVariable("AMBREL_SHOTS");
    if (!target.isEmpty())
      run("import", {"-silent", "-window", "root",
                     QStringLiteral("%1/keyboard-%2.png").arg(target).arg(++shots_, 3, 10, QChar('0'))});
  }

  std::unique_ptr<X11Connection> connection_;
  QProcess keys_;
  QString bar_;
  int shots_ = 0;
};

}  // namespace ambrel
