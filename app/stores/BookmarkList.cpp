#include "app/stores/BookmarkList.h"

#include <utility>

#include "app/base/StoredValue.h"
#include "core/web/Address.h"

namespace ambrel {

BookmarkList::BookmarkList(std::filesystem::path file, std::filesystem::path iconFolder, Fetcher& fetcher,
                           Background background, Visit visit, Shell& shell, QObject* parent)
    : EditedList(ListKind::bookmarks, std::move(file), tr("The list of bookmarks"), shell, parent),
      visit_(std::move(visit)),
      shell_(shell),
      icons_(std::move(iconFolder), fetcher, std::move(background)) {
  connect(&icons_, &SiteIcons::arrived, this, &BookmarkList::update);
  connect(this, &BookmarkList::takenOver, this, &BookmarkList::lookForIcons);
}

void BookmarkList::open() {
  EditedList::open();
  lookForIcons();
}

QString BookmarkList::add(const QString& typed) {
  const QString id = EditedList::add(typed);
  lookForIcons();
  return id;
}

void BookmarkList::edit(const QString& id, const QString& title, const QString& address) {
  EditedList::edit(id, title, {});
  // Half an address is that of another site, which must not be asked for its icon.
  typed_[id] = address;
}

void BookmarkList::finish() {
  for (const auto& [id, typed] : std::exchange(typed_, {})) {
    // It may have been removed meanwhile.
    const QString known = textOf(id);
    if (known.isEmpty() || typed == known) continue;
    if (const auto address = pageAddress(typed.toStdString()))
      setText(id, *address);
    else
      refuse(typed);
  }
  EditedList::finish();
  lookForIcons();
}

void BookmarkList::lookForIcons() {
  for (const ListEntry& entry : entries()) icons_.want(entry.text);
}

void BookmarkList::visit(const QString& id) {
  // A file that was edited by hand may hold anything.
  const auto address = pageAddress(textOf(id).toStdString());
  if (!address)
    refuse(textOf(id));
  else if (!visit_(QUrl(toQString(*address))))
    shell_.showToast(tr("No browser can open it"), toQString(*address), QStringLiteral("exclamationmark.triangle"));
}

void BookmarkList::refuse(const QString& text) {
  shell_.showToast(tr("This is not the address of a web page"), text, QStringLiteral("exclamationmark.triangle"));
}

void BookmarkList::complete(EntryRow& row) {
  const std::string address = row.text.toStdString();
  row.picture = icons_.iconOf(address);
  const QString site = toQString(siteName(address));
  row.letter = (row.title.isEmpty() ? site : row.name).left(1).toUpper();
  // As people say an address; one that says no more than the name is left out.
  QString spoken = row.text.section(QStringLiteral("://"), 1);
  if (spoken.startsWith(QLatin1String("www."))) spoken.remove(0, 4);
  if (spoken.endsWith(u'/')) spoken.chop(1);
  row.detail = spoken == row.name ? QString() : spoken;
}

}  // namespace ambrel
