#include "app/model/AppSettings.h"

#include <cmath>
#include <utility>

#include "app/base/StoredValue.h"

namespace ambrel {

AppSettings::AppSettings(UserDefaults& defaults, QObject* parent)
    : QObject(parent), defaults_(defaults), values_(loadSettings(defaults)) {}

void AppSettings::change(const SettingRow& row, const DefaultsValue& value) {
  auto wanted = accepted(row, value);
  if (!wanted || *wanted == presentValue(defaults_, row)) return;
  // Stored first, so that no observer reads an older value than the defaults have.
  store(defaults_, row.key, std::move(*wanted));
  reload();
  Q_EMIT chosen(row.key);
}

void AppSettings::reload() {
  const SettingsValues before = std::exchange(values_, loadSettings(defaults_));
#define AMBREL_TELL(KEY, ...) \
  if (before.KEY != values_.KEY) Q_EMIT KEY##Changed();
  AMBREL_SHARED_SETTINGS(AMBREL_TELL, AMBREL_TELL, AMBREL_TELL, AMBREL_TELL, AMBREL_TELL)
  Q_EMIT changed();
}

void AppSettings::take(DefaultsDictionary values) {
  std::vector<std::string> keys;
  std::erase_if(values, [&](const auto& each) {
    const SettingRow* row = findSetting(each.first);
    return !row || !accepted(*row, each.second) || each.second == presentValue(defaults_, *row);
  });
  for (const auto& [key, value] : values) keys.push_back(key);
  store(defaults_, std::move(values));
  reload();
  for (const std::string& key : keys) Q_EMIT chosen(key);
}

QStringList AppSettings::keysOf(const QString& page) const {
  QStringList keys;
  for (const SettingRow* row : allSettings())
    if (toQString(nameOf(row->page)) == page) keys.append(QString::fromLatin1(row->key));
  return keys;
}

QStringList AppSettings::face(const std::vector<std::string>& texts) {
  QStringList list;
  for (const auto& text : texts) list.append(QString::fromStdString(text));
  return list;
}

DefaultsValue AppSettings::stored(double number) {
  constexpr double exact = 1LL << 53;
  return {std::isnan(number) ? std::int64_t{0} : std::llround(std::clamp(number, -exact, exact))};
}

DefaultsValue AppSettings::stored(const QStringList& list) {
  DefaultsArray texts;
  for (const QString& text : list) texts.push_back({text.toStdString()});
  return {std::move(texts)};
}

}  // namespace ambrel
