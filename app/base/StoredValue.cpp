#include "app/base/StoredValue.h"

#include "app/base/Log.h"

namespace ambrel {

namespace {

void report(const UserDefaults& defaults, const auto& change) {
  try {
    change();
  } catch (const std::exception& error) {
    if (!defaults.onFailed) logLine(std::string("cannot save settings: ") + error.what());
  }
}

}  // namespace

void store(UserDefaults& defaults, const std::string& key, DefaultsValue value) {
  report(defaults, [&] { defaults.set(key, std::move(value)); });
}

void store(UserDefaults& defaults, DefaultsDictionary values) {
  report(defaults, [&] { defaults.set(std::move(values)); });
}

UserDefaults::Keeper storeLater(UserDefaults& defaults, const std::string& key) {
  if (auto keeper = defaults.keeperFor ? defaults.keeperFor(key) : nullptr) return keeper;
  return [&defaults, key](const DefaultsValue& value) { store(defaults, key, value); };
}

void removeStored(UserDefaults& defaults, const std::string& key) {
  report(defaults, [&] { defaults.remove(key); });
}

}  // namespace ambrel
