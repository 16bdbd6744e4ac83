// Clips that are dragged out of the running bar's shelf onto another program's window, by a real pointer.

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QMimeData>
#include <QRasterWindow>
#include <QScreen>
#include <gtest/gtest.h>

#include "core/base/Files.h"
#include "core/base/UserDefaults.h"
#include "core/clipboard/ClipboardFolder.h"
#include "tests/Pictures.h"
#include "tests/TemporaryFolder.h"
#include "tests/e2e/Desktop.h"

namespace ambrel {
namespace {

constexpr int top = 400;

// Takes whatever is dropped on it.
class DropTarget : public QRasterWindow {
 public:
  DropTarget() {
    const QSize screen = QGuiApplication::primaryScreen()->size();
    setFlag(Qt::FramelessWindowHint);
    setGeometry(screen.width() / 2 - 300, top, 600, 200);
    show();
  }

  bool hasDrop = false;
  QString text;
  QList<QUrl> urls;
  QImage picture;

 protected:
  bool event(QEvent* event) override {
    switch (event->type()) {
      case QEvent::DragEnter:
      case QEvent::DragMove:
        static_cast<QDragMoveEvent*>(event)->acceptProposedAction();
        return true;
      case QEvent::Drop: {
        auto& drop = *static_cast<QDropEvent*>(event);
        text = drop.mimeData()->text();
        urls = drop.mimeData()->urls();
        picture = QImage::fromData(drop.mimeData()->data(QStringLiteral("image/png")), "PNG");
        drop.acceptProposedAction();
        hasDrop = true;
        return true;
      }
      default:
        return QRasterWindow::event(event);
    }
  }
};

class DragOutOfTheShelf : public testing::Test {
 protected:
  void SetUp() override {
    for (const auto& [name, below] : {std::pair{"HOME", ""}, std::pair{"XDG_DATA_HOME", "data"},
                                      std::pair{"XDG_CONFIG_HOME", "config"}, std::pair{"XDG_CACHE_HOME", "cache"}})
      qputenv(name, QByteArray::fromStdString(home / below));
    UserDefaults defaults(home.path() / "config/Ambrel/defaults.json");
    defaults.set("welcomeDone", DefaultsValue{true});
    defaults.set("barAlwaysVisible", DefaultsValue{true});
    defaults.set("buddyLevel", DefaultsValue{std::string("off")});
  }

  // The bar with one clip in its history, and the shelf open.
  void openShelfWith(ClipKind kind, std::string content) {
    ClipItem item;
    item.kind = kind;
    (kind == ClipKind::image ? item.imageFileName : item.text) = std::move(content);
    item.id = UUID::random();
    item.createdAt = std::chrono::floor<std::chrono::microseconds>(std::chrono::system_clock::now());
    ClipboardFolder(home.path() / "data/Ambrel/Clipboard").save({.items = {std::move(item)}, .collections = {}});
    bar = std::make_unique<Client>(QStringLiteral(AMBREL_BAR), QStringList{});
    ASSERT_TRUE(waitFor([&] { return isOnScreen("^Tilebay$"); })) << "the bar does not come up";
    // Its keys are grabbed, and its library is read, a moment later than it shows.
    ASSERT_TRUE(waitFor([&] {
      if (!isOnScreen("^Clipboard")) run("xdotool", {"key", "super+alt+v"});
      return waitFor([&] { return isOnScreen("^Clipboard"); }, 1000);
    }));
    waitFor([] { return false; }, 600);
  }
  static bool isOnScreen(const char* name) {
    return run("xdotool", {"search", "--onlyvisible", "--name", name}).status == 0;
  }

  // From the first card down to the target, as a hand does it.
  bool dragFirstCard() {
    const int middle = QGuiApplication::primaryScreen()->size().width() / 2, first = middle - 490 + 60;
    const auto moveTo = [](int x, int y) {
      run("xdotool", {"mousemove", QString::number(x), QString::number(y)});
      waitFor([] { return false; }, 15);
    };
    moveTo(first, 140);
    run("xdotool", {"mousedown", "1"});
    for (int step = 1; step <= 30; ++step)
      moveTo(first + (middle - first) * step / 30, 140 + (top + 100 - 140) * step / 30);
    waitFor([] { return false; }, 100);
    run("xdotool", {"mouseup", "1"});
    return waitFor([&] { return target.hasDrop; });
  }

  TemporaryFolder home;
  // There before the shelf, which goes when another window takes the keys.
  DropTarget target;
  std::unique_ptr<Client> bar;
};

TEST_F(DragOutOfTheShelf, ATextArrivesAsItWasCopied) {
  openShelfWith(ClipKind::text, "Tide tables\n  for Zürich\n");
  ASSERT_TRUE(dragFirstCard());
  EXPECT_EQ(target.text.toStdString(), "Tide tables\n  for Zürich\n");
  EXPECT_TRUE(waitFor([&] { return !isOnScreen("^Clipboard"); })) << "the shelf stays";
}

TEST_F(DragOutOfTheShelf, APictureArrivesAsOneAndAsAFile) {
  const QImage image = plainPicture(320, 200, Qt::darkCyan);
  ASSERT_TRUE(image.save(QString::fromStdString(home / "shot.png")));
  ClipboardFolder folder(home.path() / "data/Ambrel/Clipboard");
  const std::string name = folder.saveImage(*readFile(home / "shot.png"));
  openShelfWith(ClipKind::image, name);
  ASSERT_TRUE(dragFirstCard());
  EXPECT_EQ(target.picture.convertToFormat(QImage::Format_RGB32), image);
  ASSERT_EQ(target.urls.size(), 1);
  EXPECT_TRUE(QImage(target.urls.front().toLocalFile()).size() == image.size());
}

}  // namespace
}  // namespace ambrel
