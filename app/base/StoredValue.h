#pragma once
// Writing one choice to the defaults, and texts between core and Qt.

#include <QString>
#include <string>

#include "core/base/UserDefaults.h"

namespace ambrel {

inline QString toQString(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// The change is kept in memory when it cannot be written; that is logged, unless somebody else hears of it
// (`onFailed`).
void store(UserDefaults& defaults, const std::string& key, DefaultsValue value);
// All of them in one write.
void store(UserDefaults& defaults, DefaultsDictionary values);
void removeStored(UserDefaults& defaults, const std::string& key);
// Stores a choice that comes later, as from a dialog, for whoever it was asked for.
UserDefaults::Keeper storeLater(UserDefaults& defaults, const std::string& key);
inline void store(UserDefaults& defaults, const std::string& key, int value) {
  store(defaults, key, DefaultsValue{static_cast<std::int64_t>(value)});
}
inline void store(UserDefaults& defaults, const std::string& key, bool value) {
  store(defaults, key, DefaultsValue{value});
}

}  // namespace ambrel
