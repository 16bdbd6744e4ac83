#include "app/model/LicenseFile.h"

#include <utility>

#include "app/base/StoredValue.h"
#include "core/base/Files.h"

namespace ambrel {

LicenseFile::LicenseFile(Seams seams, LicenseManager& gate, QObject* parent)
    : TimedModel(parent), seams_(std::move(seams)), gate_(gate), watcher_(seams_.file) {
  if (!isNeeded()) return;
  connect(&watcher_, &FollowedFile::changed, this, [this] { read(seams_.now()); });
  watcher_.start();
  read(seams_.now());
}

void LicenseFile::read(Instant now) {
  const bool allowed = isNeeded() && gate_.isPro();
  checked_ = readLicence(seams_.file, seams_.key, now);
  if (const bool allows = checked_.allowsEverything(); allows != allowed)
    gate_.setCheck([allows](ProFeature) { return allows; });
  announceDue();
  Q_EMIT changed();
}

QString LicenseFile::text() const { return QString::fromStdString(sentence(checked_, seams_.calendar())); }

QString LicenseFile::advice() const { return toQString(ambrel::advice(checked_.state)); }

std::optional<Instant> LicenseFile::due() const {
  if (checked_.state != LicenceState::valid) return std::nullopt;
  return checked_.licence->expires;
}

void LicenseFile::install(const std::filesystem::path& file) {
  problem_.clear();
  const CheckedLicence chosen = readLicence(file, seams_.key, seams_.now());
  if (chosen.state != LicenceState::valid) {
    problem_ = QString::fromStdString(sentence(chosen, seams_.calendar()));
  } else {
    try {
      makeFolders(seams_.file.parent_path());
      writeAtomically(seams_.file, readFile(file).value_or(""));
    } catch (const FileError& error) {
      problem_ = QString::fromLocal8Bit(error.what());
    }
  }
  read(seams_.now());
}

}  // namespace ambrel
