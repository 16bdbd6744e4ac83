#pragma once
// The settings that the whole program shares, as properties under their keys. They are rows of the table in
// core/settings/SettingsTable.h; each is written to the user defaults as soon as it changes.

#include <QObject>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

#include "app/base/StoredValue.h"
#include "core/settings.h"

namespace ambrel {

// For QML a word is its text, and a number a double: the lint knows no 64-bit integers. What a setting does not take
// changes nothing; numbers are kept within their range, and of several words those that are known count.
class AppSettings : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
#define AMBREL_PROPERTY(TYPE, KEY) Q_PROPERTY(TYPE KEY READ KEY##ForQML WRITE KEY##FromQML NOTIFY KEY##Changed)
#define AMBREL_BOOLEAN(KEY, ...) AMBREL_PROPERTY(bool, KEY)
#define AMBREL_INTEGER(KEY, ...) AMBREL_PROPERTY(double, KEY)
#define AMBREL_WORD(KEY, ...) AMBREL_PROPERTY(QString, KEY)
#define AMBREL_LIST(KEY, ...) AMBREL_PROPERTY(QStringList, KEY)
  AMBREL_SHARED_SETTINGS(AMBREL_BOOLEAN, AMBREL_INTEGER, AMBREL_WORD, AMBREL_LIST, AMBREL_LIST)

 public:
  // `defaults` outlives the settings.
  explicit AppSettings(UserDefaults& defaults, QObject* parent = nullptr);

  // `settings.quietStartHour()`
#define AMBREL_GETTER(KEY, ...) \
  const decltype(SettingsValues::KEY)& KEY() const { return values_.KEY; }
  AMBREL_SHARED_SETTINGS(AMBREL_GETTER, AMBREL_GETTER, AMBREL_GETTER, AMBREL_GETTER, AMBREL_GETTER)

  // `settings.set(setting::quietStartHour, 20)`
  template <typename T>
  void set(const Setting<T>& setting, const std::type_identity_t<T>& value) {
    change(setting, storedForm(setting, value));
  }

  // `settings.read(setting::shelfKeys)`
  template <typename T>
  T read(const Setting<T>& setting) const {
    return valueOf(defaults_, setting);
  }

  // The same by the setting's row, also for those that one model alone reads.
  DefaultsValue value(const SettingRow& row) const { return presentValue(defaults_, row); }
  void change(const SettingRow& row, const DefaultsValue& value);

  // Several at once, such as those of a file; values that a setting does not take change nothing.
  void take(DefaultsDictionary values);

  // The keys of a page ("disk"), in the order of the table.
  Q_INVOKABLE QStringList keysOf(const QString& page) const;

  // Takes over what the defaults hold now.
  void reload();

 Q_SIGNALS:
  // The user has changed this setting here; the defaults themselves tell of what others change.
  void chosen(const std::string& key);
  // After every change, here or elsewhere.
  void changed();
#define AMBREL_SIGNAL(KEY, ...) void KEY##Changed();
  AMBREL_SHARED_SETTINGS(AMBREL_SIGNAL, AMBREL_SIGNAL, AMBREL_SIGNAL, AMBREL_SIGNAL, AMBREL_SIGNAL)

 private:
#define AMBREL_FACE(TYPE, KEY)                           \
  TYPE KEY##ForQML() const { return face(values_.KEY); } \
  void KEY##FromQML(const TYPE& value) { change(setting::KEY, stored(value)); }
#undef AMBREL_BOOLEAN
#undef AMBREL_INTEGER
#undef AMBREL_WORD
#undef AMBREL_LIST
#define AMBREL_BOOLEAN(KEY, ...) AMBREL_FACE(bool, KEY)
#define AMBREL_INTEGER(KEY, ...) AMBREL_FACE(double, KEY)
#define AMBREL_WORD(KEY, ...) AMBREL_FACE(QString, KEY)
#define AMBREL_LIST(KEY, ...) AMBREL_FACE(QStringList, KEY)
  AMBREL_SHARED_SETTINGS(AMBREL_BOOLEAN, AMBREL_INTEGER, AMBREL_WORD, AMBREL_LIST, AMBREL_LIST)

  // What QML sees of a value, and back.
  static bool face(bool value) { return value; }
  static double face(std::int64_t value) { return static_cast<double>(value); }
  static QString face(auto word) { return toQString(nameOf(word)); }
  static QStringList face(const std::vector<std::string>& texts);
  template <typename E>
  static QStringList face(const std::set<E>& words) {
    QStringList list;
    for (const E word : words) list.append(face(word));
    return list;
  }
  static DefaultsValue stored(bool value) { return {value}; }
  static DefaultsValue stored(double number);
  static DefaultsValue stored(const QString& text) { return {text.toStdString()}; }
  static DefaultsValue stored(const QStringList& list);

  UserDefaults& defaults_;
  SettingsValues values_;
};

}  // namespace ambrel
