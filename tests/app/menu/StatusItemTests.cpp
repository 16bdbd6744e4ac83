#include <QAction>
#include <QPixmap>
#include <QtTest>

#include "app/menu/StatusItem.h"

namespace ambrel {

class StatusItemTests : public QObject {
  Q_OBJECT

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
    QCOMPARE(item.trayIcon().toolTip(), QStringLiteral("Tilebay"));
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
    QCOMPARE(item.trayIcon().toolTip(), QStringLiteral("Tilebay: 2 agents need you"));
  }
};

}  // namespace ambrel

QTEST_MAIN(ambrel::StatusItemTests)
#include "StatusItemTests.moc"
