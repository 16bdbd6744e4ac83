#include "app/StoredDefaults.h"

#include "app/base/Log.h"
#include "core/settings/SandboxMigration.h"

namespace ambrel {
namespace {

constexpr const char* ownIdentifier = "dev.qorvin.ambrel";

}  // namespace

StoredDefaults::StoredDefaults(const Surroundings& surroundings)
    : defaults_(surroundings.defaultsFile), watcher_(defaults_) {
  defaults_.onFailed = [this](const std::exception& error) { write_.failed(error); };
  connect(&write_, &PatientWrite::problemFound, this, &StoredDefaults::problemFound);
  try {
    kept_ = defaults_.setAside();
  } catch (const std::exception& error) {
    logLine(error.what());
  }
  for (const std::string& line :
       migrateFromSandbox({surroundings.home, surroundings.dataFolder, ownIdentifier}, defaults_))
    logLine(line);
  connect(&watcher_, &DefaultsWatcher::changed, this, &StoredDefaults::changed);
}

void StoredDefaults::follow() {
  defaults_.onSetAside = [this](const std::filesystem::path& copy) { tellOfKept(copy); };
  defaults_.onUnreadable = [this] {
    logLine(defaults_.file().string() + " is no JSON; the settings stay as they were");
    Q_EMIT problemFound(tr("The settings cannot be read"),
                        tr("There is a mistake in defaults.json. The settings stay as they were."));
  };
  watcher_.start();
  if (kept_) tellOfKept(*kept_);
}

void StoredDefaults::tellOfKept(const std::filesystem::path& copy) {
  logLine("the settings could not be read; the file is kept as " + copy.string());
  Q_EMIT problemFound(tr("The settings could not be read"),
                      tr("The file is kept as %1").arg(QString::fromStdString(copy.filename().string())));
}

}  // namespace ambrel
