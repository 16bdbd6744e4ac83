#include "app/panels/ChoicesModel.h"

#include "core/base/Files.h"
#include "core/base/JSON.h"
#include "core/settings/Choices.h"

namespace ambrel {
namespace {

constexpr std::uint64_t largestFile = 16 << 20;

QString nameOfFile(const std::filesystem::path& file) { return QString::fromStdString(file.filename().string()); }

}  // namespace

ChoicesModel::ChoicesModel(const UserDefaults& defaults, AppSettings& settings, AppModel& model, QObject* parent)
    : QObject(parent), defaults_(defaults), settings_(settings), model_(model) {}

void ChoicesModel::exportTo(const std::filesystem::path& file) {
  try {
    writeAtomically(file, exportedChoices(defaults_, model_.profiles()), 0600);
    tell(tr("All choices are in %1").arg(nameOfFile(file)), false);
  } catch (const FileError& error) {
    tell(QString::fromLocal8Bit(error.what()), true);
  }
}

void ChoicesModel::importFrom(const std::filesystem::path& file) {
  ImportedChoices choices;
  try {
    choices = importedChoices(readFile(file, largestFile).value_or(""));
  } catch (const DecodingError& error) {
    return tell(tr("%1 is %2").arg(nameOfFile(file), QString::fromLatin1(error.what())), true);
  }
  QStringList lines{tr("Settings taken over: %1").arg(choices.values.size())};
  if (choices.profiles) lines[0] += tr(", profiles: %1").arg(choices.profiles->size());
  for (const std::string& line : choices.skipped) lines << tr("Skipped: %1").arg(QString::fromStdString(line));
  settings_.take(std::move(choices.values));
  if (choices.profiles) model_.setProfiles(std::move(*choices.profiles));
  tell(lines.join(u'\n'), lines.size() > 1);
}

void ChoicesModel::tell(const QString& report, bool hasProblem) {
  report_ = report;
  hasProblem_ = hasProblem;
  Q_EMIT changed();
}

}  // namespace ambrel
