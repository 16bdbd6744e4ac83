#include "app/base/StoredValue.h"

#include "app/base/Log.h"

namespace ambrel {

void store(UserDefaults& defaults, const std::string& key, DefaultsValue value) {
  try {
    defaults.set(key, std::move(value));
  } catch (const std::exception& error) {
    logLine(std::string("cannot save settings: ") + error.what());
  }
}

}  // namespace ambrel
