#include "app/panels/PrivacyModel.h"

#include <QDesktopServices>
#include <QFile>
#include <QUrl>
#include <utility>

#include "app/base/StoredValue.h"
#include "core/base/LocalText.h"

namespace ambrel {
namespace {

QString toQString(const std::filesystem::path& path) { return QFile::decodeName(path.c_str()); }

}  // namespace

PrivacyModel::PrivacyModel(PersonalPlaces places, std::vector<Source> sources, std::filesystem::path home,
                           const PresentCalendar& calendar, QObject* parent)
    : QObject(parent),
      places_(std::move(places)),
      sources_(std::move(sources)),
      home_(std::move(home)),
      calendar_(calendar) {}

QString PrivacyModel::shortPath(const std::filesystem::path& path) const {
  const QString whole = toQString(path), home = toQString(home_) + u'/';
  return whole.startsWith(home) ? QStringLiteral("~/") + whole.mid(home.size()) : whole;
}

QString PrivacyModel::placeOf(const std::vector<std::filesystem::path>& files) const {
  if (files.empty()) return {};
  const auto size = static_cast<std::int64_t>(sizeOf(files));
  return tr("%1 in %2")
      .arg(QString::fromStdString(fileSize(calendar_(), size)),
           shortPath(files.size() == 1 ? files.front() : files.front().parent_path()));
}

void PrivacyModel::look() {
  std::vector<PrivacyRow> kept, read;
  for (const PersonalData& data : personalData()) {
    const auto files = filesOf(data, places_);
    PrivacyRow row;
    row.rowId = ambrel::toQString(data.id);
    row.title = ambrel::toQString(data.title);
    row.detail = ambrel::toQString(data.detail);
    row.place = placeOf(files);
    row.isKept = true;
    row.folder = toQString(folderOf(data, places_));
    kept.push_back(std::move(row));
  }
  for (const Source& source : sources_) {
    std::error_code error;
    PrivacyRow row;
    row.rowId = row.title = source.title;
    row.detail = source.detail;
    if (std::filesystem::exists(source.folder, error)) row.place = shortPath(source.folder);
    row.folder = toQString(source.folder);
    read.push_back(std::move(row));
  }
  kept_.setRows(kept);
  read_.setRows(read);
}

void PrivacyModel::show(const QString& id) {
  for (const auto* rows : {&kept_.rows(), &read_.rows()})
    for (const PrivacyRow& row : *rows)
      if (row.rowId == id) QDesktopServices::openUrl(QUrl::fromLocalFile(row.folder));
}

}  // namespace ambrel
