#pragma once
// How the program looks, as far as the user chooses it: kept in the user defaults and put on the theme.

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include "app/kit/Theme.h"
#include "core/base/UserDefaults.h"

namespace ambrel {

// Keys: "theme" ("system", "dark" or "light"; anything else counts as "system") and "reduceMotion" (boolean, default
// false).
class AppearanceSettings : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(QString theme READ theme WRITE setTheme NOTIFY themeChanged)
  Q_PROPERTY(bool reducesMotion READ reducesMotion WRITE setReducesMotion NOTIFY reducesMotionChanged)

 public:
  // Puts what is stored on `theme`. Both outlive the settings.
  AppearanceSettings(UserDefaults& defaults, Theme& theme, QObject* parent = nullptr);

  // The defaults have been changed by others.
  void reload();

  QString theme() const;
  // A name that is none of the three changes nothing.
  void setTheme(const QString& name);
  bool reducesMotion() const { return theme_.alwaysReducesMotion(); }
  void setReducesMotion(bool reduces);

 Q_SIGNALS:
  void themeChanged();
  void reducesMotionChanged();

 private:
  void store(const std::string& key, DefaultsValue value);

  UserDefaults& defaults_;
  Theme& theme_;
};

}  // namespace ambrel
