#include "app/stores/FolderModel.h"

#include <QFile>

#include "app/base/QmlObjects.h"
#include "app/base/Replaced.h"
#include "app/base/StoredFolder.h"
#include "app/base/StoredValue.h"
#include "app/window/FileManager.h"
#include "core/base/LocalText.h"

namespace ambrel {
namespace {

constexpr const char* key = "folderWidgetPath";

QString decoded(const std::string& path) { return QFile::decodeName(QByteArray::fromStdString(path)); }

QString whenText(const Calendar& calendar, Instant modified, Instant now) {
  return toQString(calendar.dayKey(modified) == calendar.dayKey(now) ? shortTime(calendar, modified)
                                                                     : formattedDate(calendar, modified, "dMMM"));
}

}  // namespace

FolderModel::FolderModel(Seams seams, Unfinished unfinished, Shell& shell, QObject* parent)
    : QObject(parent),
      seams_(std::move(seams)),
      unfinished_(unfinished),
      shell_(shell),
      reading_(seams_.background, pause, [this] { return reading(); }) {
  keep({&rows_});
}

void FolderModel::setPath(std::string path) {
  path = folderPath(path);
  if (path == path_) return;
  path_ = std::move(path);
  reading_.forget();
  show({}, false);
  follow();
}

void FolderModel::setShown(bool isShown) {
  if (std::exchange(isShown_, isShown) != isShown) follow();
}

void FolderModel::follow() {
  isFollowed_ = false;
  seams_.watch.follow({}, {});
  look();
}

PacedWork::Job FolderModel::reading() {
  if (!isShown_ || path_.empty()) return {};
  return PacedWork::job([path = path_, unfinished = unfinished_] { return newestItems(path, mostRows, unfinished); },
                        [this](std::optional<FolderListing> listing) {
                          show(std::move(listing), true);
                          if (!isShown_ || std::exchange(isFollowed_, true)) return;
                          seams_.watch.follow({{path_}}, [this](std::size_t) { look(); });
                          // Nobody has told of what changed since it was read.
                          look();
                        });
}

void FolderModel::show(std::optional<FolderListing> listing, bool isRead) {
  listing_ = std::move(listing);
  isRead_ = isRead;
  publish();
}

void FolderModel::publish() {
  const Calendar& calendar = seams_.calendar();
  std::vector<FolderRow> rows;
  FolderFace face;
  face.isChosen = !path_.empty();
  face.path = decoded(path_);
  face.name = path_ == "/" ? face.path : face.path.section(u'/', -1);
  if (listing_) {
    for (const FolderItem& item : listing_->newest) {
      const QString when = whenText(calendar, item.modified, seams_.now());
      FolderRow row;
      row.id = row.name = decoded(item.name);
      const QString size = toQString(fileSize(calendar, item.bytes));
      row.isLoading = item.isLoading;
      row.detail = item.isLoading ? tr("%1 so far").arg(size) : item.isFolder ? when : tr("%1, %2").arg(size, when);
      if (item.isLoading) row.name.truncate(row.name.lastIndexOf(u'.'));
      row.symbol = toQString(symbolOf(item));
      row.url = fileURL(path_ + '/' + item.name);
      rows.push_back(std::move(row));
    }
    face.isEmpty = listing_->count + listing_->loading == 0;
    if (listing_->loading > 0) face.loadingText = tr("%1 loading").arg(listing_->loading);
    if (!rows.empty()) {
      face.newest = rows.front().name;
      face.newestDetail = rows.front().detail;
    }
    face.countText = listing_->count == 1 ? tr("1 item") : tr("%1 items").arg(listing_->count);
  } else if (isRead_) {
    face.problem = tr("%1 is not there, or cannot be read").arg(face.name);
  }
  rows_.setRows(rows);
  if (replaced(face_, std::move(face))) Q_EMIT faceChanged();
}

const FolderRow* FolderModel::row(const QString& rowId) const {
  const auto found = std::ranges::find(rows_.rows(), rowId, &FolderRow::id);
  return found == rows_.rows().end() ? nullptr : &*found;
}

void FolderModel::open(const QString& rowId) {
  const FolderRow* found = row(rowId);
  if (found && found->isLoading) return showInFolder(rowId);
  if (found) openURL(found->url);
}

void FolderModel::showInFolder(const QString& rowId) {
  if (const FolderRow* found = row(rowId)) seams_.showInFolder(found->url);
}

void FolderModel::openFolder() { openURL(QUrl::fromLocalFile(face_.path)); }

void FolderModel::openURL(const QUrl& url) {
  if (!seams_.open(url))
    shell_.showToast(tr("No program can open it"), url.toLocalFile(), QStringLiteral("exclamationmark.triangle"));
}

ChosenFolder::ChosenFolder(UserDefaults& defaults, Seams seams, Shell& shell, QObject* parent)
    : FolderModel(std::move(seams), Unfinished::passedOver, shell, parent), defaults_(defaults) {
  reload();
}

void ChosenFolder::reload() { setPath(storedFolder(defaults_, key)); }

std::function<void(const std::string&)> ChosenFolder::chooser() {
  return [this, keep = storeLater(defaults_, key)](const std::string& path) {
    keep({path});
    reload();
  };
}

}  // namespace ambrel
