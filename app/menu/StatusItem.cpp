#include "app/menu/StatusItem.h"

#include <QActionGroup>
#include <QCoreApplication>
#include <QCursor>
#include <QKeySequence>
#include <ranges>
#include <string_view>

namespace ambrel {
namespace {

QString plainText(const std::string& title) {
  // An ampersand would underline the letter behind it.
  return QString::fromStdString(title).replace(QLatin1Char('&'), QStringLiteral("&&"));
}

// Whether the menus differ in texts and marks alone.
bool hasSameShape(const std::vector<MenuEntry>& left, const std::vector<MenuEntry>& right) {
  return std::ranges::equal(left, right, [](const MenuEntry& a, const MenuEntry& b) {
    return a.title.empty() == b.title.empty() && a.command == b.command && a.profile == b.profile &&
           a.isChecked.has_value() == b.isChecked.has_value() && hasSameShape(a.entries, b.entries);
  });
}

}  // namespace

QString KeyNames::translate(const char* context, const char* source, const char*, int) const {
  const bool isSuper = std::string_view(context) == "QShortcut" && std::string_view(source) == "Meta";
  return isSuper ? QStringLiteral("Super") : QString();
}

StatusItem::StatusItem(Icon icon, Handler handler) : icon_(std::move(icon)), handler_(std::move(handler)) {
  QCoreApplication::installTranslator(&keyNames_);
}

void StatusItem::show() {
  tray_ = std::make_unique<QSystemTrayIcon>();
  tray_->setContextMenu(&menu_);
  // A click opens the menu, whichever button it was.
  connect(tray_.get(), &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
    if (reason == QSystemTrayIcon::Trigger) menu_.popup(QCursor::pos());
  });
  showAttention();
  tray_->show();
}

void StatusItem::showAttention() {
  if (!tray_ || !shown_) return;
  tray_->setIcon(icon_(shown_->attention));
  tray_->setToolTip(QString::fromStdString(menuBarLabel(*shown_)));
}

void StatusItem::update(const MenuModel& menu) {
  if (shown_ == menu) return;
  const bool isFirst = !shown_;
  const bool hasNews = isFirst || shown_->attention != menu.attention;
  if (!isFirst && hasSameShape(shown_->entries, menu.entries)) {
    rewrite(menu_, menu.entries);
  } else {
    // Submenus and groups are no actions: clear() leaves them.
    qDeleteAll(menu_.findChildren<QMenu*>(Qt::FindDirectChildrenOnly));
    qDeleteAll(menu_.findChildren<QActionGroup*>(Qt::FindDirectChildrenOnly));
    menu_.clear();
    fill(menu_, menu.entries);
  }
  shown_ = menu;
  if (hasNews) showAttention();
}

void StatusItem::redrawIcon() { showAttention(); }

void StatusItem::fill(QMenu& menu, const std::vector<MenuEntry>& entries) {
  QActionGroup* choices = nullptr;
  for (const MenuEntry& entry : entries) {
    if (entry.title.empty()) {
      menu.addSeparator();
      continue;
    }
    if (!entry.entries.empty()) {
      QMenu* submenu = menu.addMenu(plainText(entry.title));
      fill(*submenu, entry.entries);
      continue;
    }
    QAction* action = menu.addAction(plainText(entry.title));
    if (entry.isChecked) {
      if (!choices) choices = new QActionGroup(&menu);
      choices->addAction(action);
    }
    write(*action, entry);
    if (!entry.command) continue;
    connect(action, &QAction::triggered, this, [this, command = *entry.command, profile = entry.profile] {
      if (handler_) handler_(command, profile);
      // The toolkit has marked what was clicked; what the model says counts, which may have refused it.
      rewrite(menu_, shown_->entries);
    });
  }
}

void StatusItem::rewrite(QMenu& menu, const std::vector<MenuEntry>& entries) {
  const QList<QAction*> actions = menu.actions();
  for (std::size_t i = 0; i < entries.size(); ++i) {
    QAction& action = *actions[qsizetype(i)];
    if (entries[i].title.empty()) continue;
    if (action.menu())
      rewrite(*action.menu(), entries[i].entries);
    else
      write(action, entries[i]);
  }
}

void StatusItem::write(QAction& action, const MenuEntry& entry) {
  action.setText(plainText(entry.title));
  action.setEnabled(entry.command.has_value());
  if (!entry.shortcut.empty())
    action.setShortcut(QKeySequence(QString::fromStdString(entry.shortcut), QKeySequence::PortableText));
  if (!entry.isChecked) return;
  action.setCheckable(true);
  action.setChecked(*entry.isChecked);
}

}  // namespace ambrel
