#pragma once
// The item in the desktop's tray: an icon, and the menu that a MenuModel describes.

#include <QIcon>
#include <QMenu>
#include <QObject>
#include <QSystemTrayIcon>
#include <QTranslator>
#include <functional>
#include <memory>

#include "app/menu/MenuModel.h"

namespace ambrel {

// The toolkit's menus call the key of the window sign Meta, and no keyboard does.
class KeyNames : public QTranslator {
 public:
  QString translate(const char* context, const char* source, const char* disambiguation, int n) const override;
  bool isEmpty() const override { return false; }
};

// Needs a QApplication.
class StatusItem : public QObject {
  Q_OBJECT

 public:
  using Handler = std::function<void(MenuCommand command, const std::optional<UUID>& profile)>;
  // The icon of the plain item for 0, otherwise of one that shows the count.
  using Icon = std::function<QIcon(int attention)>;

  StatusItem(Icon icon, Handler handler);

  void update(const MenuModel& menu);
  // What the icon is drawn from has changed, such as the colours of the desktop.
  void redrawIcon();
  // A tray is there, for the first time. It may go and come again.
  void show();

  const QMenu& menu() const { return menu_; }
  // Null before `show`.
  const QSystemTrayIcon* trayIcon() const { return tray_.get(); }

 private:
  void fill(QMenu& menu, const std::vector<MenuEntry>& entries);
  // Writes the new texts and marks into a menu of the same shape, which may be open.
  void rewrite(QMenu& menu, const std::vector<MenuEntry>& entries);
  void write(QAction& action, const MenuEntry& entry);
  void showAttention();

  Icon icon_;
  Handler handler_;
  std::optional<MenuModel> shown_;
  KeyNames keyNames_;
  QMenu menu_;
  std::unique_ptr<QSystemTrayIcon> tray_;
};

}  // namespace ambrel
