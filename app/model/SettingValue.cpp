#include "app/model/SettingValue.h"

#include <QQmlEngine>
#include <QQmlInfo>
#include <cmath>

#include "core/base/Overloaded.h"

namespace ambrel {
namespace {

constexpr const char* lent = "ambrelSettings";

}  // namespace

void SettingValue::lend(QQmlEngine& engine, AppSettings& settings) {
  engine.setProperty(lent, QVariant::fromValue(&settings));
}

void SettingValue::setKey(const QString& key) {
  const SettingRow* row = findSetting(key.toStdString());
  if (!row) {
    qmlWarning(this) << "no setting is called " << key;
    return;
  }
  row_ = row;
  if (!settings_) {
    settings_ = qmlEngine(this)->property(lent).value<AppSettings*>();
    if (settings_) connect(settings_, &AppSettings::changed, this, &SettingValue::changed);
  }
  Q_EMIT changed();
}

QVariant SettingValue::value() const {
  if (!settings_) return {};
  return std::visit(Overloaded{[](bool isOn) { return QVariant(isOn); },
                               [](std::int64_t number) { return QVariant(static_cast<double>(number)); },
                               [](const std::string& text) { return QVariant(toQString(text)); },
                               [](const auto&) { return QVariant(); }},
                    settings_->value(*row_).value);
}

void SettingValue::setValue(const QVariant& value) {
  if (!settings_) return;
  if (isSwitch())
    settings_->change(*row_, {value.toBool()});
  else if (row_->type == SettingType::integer)
    settings_->change(*row_, {static_cast<std::int64_t>(std::llround(value.toDouble()))});
  else
    settings_->change(*row_, {value.toString().toStdString()});
}

QStringList SettingValue::words() const {
  QStringList list;
  for (const std::string_view word : row_->words) list.append(toQString(word));
  return list;
}

}  // namespace ambrel
