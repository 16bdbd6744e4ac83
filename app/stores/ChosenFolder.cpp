#include "app/stores/ChosenFolder.h"

#include <QFile>

#include "app/base/QmlObjects.h"
#include "app/base/Replaced.h"
#include "app/base/StoredFolder.h"
#include "app/base/StoredValue.h"
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

ChosenFolder::ChosenFolder(Seams seams, Shell& shell, QObject* parent)
    : QObject(parent),
      seams_(std::move(seams)),
      shell_(shell),
      reading_(seams_.background, pause, [this] { return reading(); }) {
  keep({&rows_});
  reload();
}

void ChosenFolder::reload() {
  std::string path = storedFolder(seams_.defaults, key);
  if (path == path_) return;
  path_ = std::move(path);
  reading_.forget();
  show({}, false);
  follow();
}

void ChosenFolder::choose(const std::string& path) {
  store(seams_.defaults, key, DefaultsValue{path});
  reload();
}

void ChosenFolder::setShown(bool isShown) {
  if (std::exchange(isShown_, isShown) != isShown) follow();
}

void ChosenFolder::follow() {
  if (!isShown_ || path_.empty()) {
    seams_.watch.follow({}, {});
    return;
  }
  seams_.watch.follow({{path_}}, [this](std::size_t) { look(); });
  look();
}

PacedWork::Job ChosenFolder::reading() {
  if (!isShown_ || path_.empty()) return {};
  return PacedWork::job([path = path_] { return newestItems(path, mostRows); },
                        [this](const std::optional<FolderListing>& listing) { show(listing, true); });
}

void ChosenFolder::show(const std::optional<FolderListing>& listing, bool isRead) {
  const Calendar& calendar = seams_.calendar();
  std::vector<FolderRow> rows;
  FolderFace face;
  face.isChosen = !path_.empty();
  face.path = decoded(path_);
  face.name = path_ == "/" ? face.path : face.path.section(u'/', -1);
  if (listing) {
    for (const FolderItem& item : listing->newest) {
      const QString when = whenText(calendar, item.modified, seams_.now());
      FolderRow row;
      row.id = row.name = decoded(item.name);
      row.detail = item.isFolder ? when : tr("%1, %2").arg(toQString(fileSize(calendar, item.bytes)), when);
      row.symbol = toQString(symbolOf(item));
      row.url = QUrl::fromLocalFile(face.path + u'/' + row.id);
      rows.push_back(std::move(row));
    }
    face.isEmpty = listing->count == 0;
    face.newest = rows.empty() ? QString() : rows.front().name;
    face.countText = listing->count == 1 ? tr("1 item") : tr("%1 items").arg(listing->count);
  } else if (isRead) {
    face.problem = tr("%1 is not there, or cannot be read").arg(face.name);
  }
  rows_.setRows(rows);
  if (replaced(face_, std::move(face))) Q_EMIT faceChanged();
}

const FolderRow* ChosenFolder::row(const QString& rowId) const {
  const auto found = std::ranges::find(rows_.rows(), rowId, &FolderRow::id);
  return found == rows_.rows().end() ? nullptr : &*found;
}

void ChosenFolder::open(const QString& rowId) {
  if (const FolderRow* found = row(rowId)) openURL(found->url);
}

void ChosenFolder::openFolder() { openURL(QUrl::fromLocalFile(face_.path)); }

void ChosenFolder::openURL(const QUrl& url) {
  if (!seams_.open(url))
    shell_.showToast(tr("Nothing opens it"), url.toLocalFile(), QStringLiteral("exclamationmark.triangle"));
}

}  // namespace ambrel
