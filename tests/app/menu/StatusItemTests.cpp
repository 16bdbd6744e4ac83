#include <QAction>
#include <QFontDatabase>
#include <QImage>
#include <QPixmap>
#include <QtTest>

#include "app/kit/SymbolTable.h"
#include "app/menu/StatusIcon.h"
#include "app/menu/StatusItem.h"

namespace ambrel {
class StatusItemTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    chosen_.clear();
    icons_.clear();
  }

  void showsWhatTheModelSays() {
    StatusItem item = makeItem();
    item.update(model());
    const auto actions = item.menu().actions();
    QCOMPARE(actions.size(), 4);
    QCOMPARE(actions[0]->text(), QStringLiteral("Active: Work"));
    QVERIFY(!actions[0]->isEnabled());
    QVERIFY(actions[2]->isSeparator());
    QCOMPARE(actions[3]->shortcut(), QKeySequence(Qt::META | Qt::Key_Comma));
    QCOMPARE(actions[3]->shortcut().toString(QKeySequence::NativeText), QStringLiteral("Super+,"));
    const auto choices = actions[1]->menu()->actions();
    QCOMPARE(choices.size(), 2);
    QCOMPARE(choices[0]->text(), QStringLiteral("Work && play"));
    QVERIFY(choices[0]->isChecked());
    QVERIFY(!choices[1]->isChecked());
    QVERIFY(!item.trayIcon());
    item.show();
    QCOMPARE(item.trayIcon()->toolTip(), QStringLiteral("Tilebay"));
  }

  void givesBackTheCommandAndTheProfile() {
    StatusItem item = makeItem();
    item.update(model());
    item.menu().actions()[3]->trigger();
    item.menu().actions()[1]->menu()->actions()[1]->trigger();
    QCOMPARE(chosen_.size(), std::size_t{2});
    QVERIFY(chosen_[0] == std::pair(MenuCommand::openSettings, std::optional<UUID>()));
    QVERIFY(chosen_[1] == std::pair(MenuCommand::pinProfile, std::optional(second_)));
    // Nobody has taken the choice over, as without a licence.
    QVERIFY(item.menu().actions()[1]->menu()->actions()[0]->isChecked());
    QVERIFY(!item.menu().actions()[1]->menu()->actions()[1]->isChecked());
  }

  void changesTextsInPlaceWhileItMayBeOpen() {
    StatusItem item = makeItem();
    MenuModel menu = model();
    item.update(menu);
    const auto before = item.menu().actions();
    const auto choices = before[1]->menu()->actions();
    menu.entries[0].title = "Active: Other";
    menu.entries[1].entries[0].isChecked = false;
    menu.entries[1].entries[1].isChecked = true;
    item.update(menu);
    QCOMPARE(item.menu().actions(), before);
    QCOMPARE(before[0]->text(), QStringLiteral("Active: Other"));
    QVERIFY(!choices[0]->isChecked());
    QVERIFY(choices[1]->isChecked());
  }

  void buildsAnotherMenuWhenTheShapeChanges() {
    StatusItem item = makeItem();
    MenuModel menu = model();
    item.update(menu);
    menu.entries[1].entries.pop_back();
    menu.entries.push_back({.title = "Quit Tilebay", .command = MenuCommand::quit});
    item.update(menu);
    QCOMPARE(item.menu().actions().size(), 5);
    QCOMPARE(item.menu().actions()[1]->menu()->actions().size(), 1);
    item.menu().actions()[4]->trigger();
    QVERIFY(chosen_.back().first == MenuCommand::quit);
  }

  void drawsTheIconOnlyWhenTheCountChanges() {
    StatusItem item = makeItem();
    MenuModel menu = model();
    item.show();
    item.update(menu);
    item.update(menu);
    menu.entries[0].title = "Active: Other";
    item.update(menu);
    menu.attention = 2;
    item.update(menu);
    QCOMPARE(icons_, (std::vector<int>{0, 2}));
    // The desktop has other colours.
    item.redrawIcon();
    QCOMPARE(icons_.back(), 2);
    QCOMPARE(icons_.size(), 3u);
    QCOMPARE(item.trayIcon()->toolTip(), QStringLiteral("Tilebay: 2 agents need you"));
  }

  void initTestCase() {
    if (!QFontDatabase::families().contains(QString::fromLatin1(symbolFontFamily)))
      QSKIP("the icon font is not installed");
  }

  void thePlainIconHasASignInInkAndNoOrange() {
    const Palette palette = darkPalette();
    for (const int size : {16, 22, 64}) {
      const QImage image = statusImage(0, palette, size);
      QCOMPARE(image.size(), QSize(size, size));
      QVERIFY2(inked(image, palette.ink, palette.panel) > size * size / 20, qPrintable(QString::number(size)));
      QCOMPARE(warm(image), 0);
      QCOMPARE(image.pixelColor(0, 0).alpha(), 0);
    }
  }

  void attentionIsOrangeAndEachCountItsOwnPicture() {
    const Palette palette = darkPalette();
    QList<QImage> seen;
    for (const int count : {1, 2, 9, 10}) {
      const QImage image = statusImage(count, palette, 44);
      QVERIFY(warm(image) > 44 * 44 / 10);
      QVERIFY(!seen.contains(image));
      seen << image;
    }
    QCOMPARE(statusImage(10, palette, 44), statusImage(99, palette, 44));
  }

 private:
  UUID first_ = UUID::random(), second_ = UUID::random();
  std::vector<std::pair<MenuCommand, std::optional<UUID>>> chosen_;
  std::vector<int> icons_;

  MenuModel model() const {
    MenuModel menu;
    const auto choice = [](const char* title, const UUID& profile, bool isChecked) {
      return MenuEntry{.title = title, .command = MenuCommand::pinProfile, .profile = profile, .isChecked = isChecked};
    };
    menu.entries = {
        {.title = "Active: Work"},
        {.title = "Profile", .entries = {choice("Work & play", first_, true), choice("Other", second_, false)}},
        {},
        {.title = "Settings", .command = MenuCommand::openSettings, .shortcut = "Meta+,"}};
    return menu;
  }
  StatusItem makeItem() {
    return {
        [this](int attention) {
          icons_.push_back(attention);
          return QIcon(QPixmap(22, 22));
        },
        [this](MenuCommand command, const std::optional<UUID>& profile) { chosen_.emplace_back(command, profile); }};
  }

  // Pixels that are nearer to the colour than to the ground.
  static int inked(const QImage& image, const QColor& color, const QColor& ground) {
    const auto distance = [](const QColor& a, const QColor& b) {
      return std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) + std::abs(a.blue() - b.blue());
    };
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
      for (int x = 0; x < image.width(); ++x) {
        const QColor pixel = image.pixelColor(x, y);
        if (pixel.alpha() > 200 && distance(pixel, color) * 2 < distance(pixel, ground)) ++count;
      }
    return count;
  }

  static int warm(const QImage& image) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
      for (int x = 0; x < image.width(); ++x)
        if (image.pixelColor(x, y).red() - image.pixelColor(x, y).blue() > 80) ++count;
    return count;
  }
};

}  // namespace ambrel

QTEST_MAIN(ambrel::StatusItemTests)
#include "StatusItemTests.moc"
