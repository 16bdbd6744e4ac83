#include "app/panels/AppearanceSettings.h"

#include "app/base/Log.h"
#include "core/base/EnumText.h"

namespace ambrel {

template <>
struct EnumText<Theme::Choice> {
  static constexpr std::array table{
      std::pair{Theme::Choice::System, std::string_view("system")},
      std::pair{Theme::Choice::Dark, std::string_view("dark")},
      std::pair{Theme::Choice::Light, std::string_view("light")},
  };
};

namespace {

constexpr auto themeKey = "theme";
constexpr auto motionKey = "reduceMotion";

}  // namespace

AppearanceSettings::AppearanceSettings(UserDefaults& defaults, Theme& theme, QObject* parent)
    : QObject(parent), defaults_(defaults), theme_(theme) {
  reload();
}

void AppearanceSettings::reload() {
  theme_.setChoice(fromName<Theme::Choice>(defaults_.string(themeKey).value_or("")).value_or(Theme::Choice::System));
  theme_.setAlwaysReducesMotion(defaults_.boolean(motionKey).value_or(false));
  Q_EMIT themeChanged();
  Q_EMIT reducesMotionChanged();
}

QString AppearanceSettings::theme() const {
  const std::string_view name = nameOf(theme_.choice());
  return QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()));
}

void AppearanceSettings::setTheme(const QString& name) {
  const auto choice = fromName<Theme::Choice>(name.toStdString());
  if (!choice || *choice == theme_.choice()) return;
  theme_.setChoice(*choice);
  store(themeKey, {name.toStdString()});
  Q_EMIT themeChanged();
}

void AppearanceSettings::setReducesMotion(bool reduces) {
  if (reduces == theme_.alwaysReducesMotion()) return;
  theme_.setAlwaysReducesMotion(reduces);
  store(motionKey, {reduces});
  Q_EMIT reducesMotionChanged();
}

void AppearanceSettings::store(const std::string& key, DefaultsValue value) {
  try {
    defaults_.set(key, std::move(value));
  } catch (const std::exception& error) {
    logLine("cannot save settings: " + std::string(error.what()));
  }
}

}  // namespace ambrel
