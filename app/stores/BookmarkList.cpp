#include "app/stores/BookmarkList.h"

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
}

void BookmarkList::open() {
  EditedList::open();
  lookForIcons();
}

void BookmarkList::lookForIcons() {
  for (const ListEntry& entry : entries()) icons_.want(entry.text);
}

void BookmarkList::visit(const QString& id) {
  // A file that was edited by hand may hold anything.
  const auto address = pageAddress(textOf(id).toStdString());
  if (!address)
    shell_.showToast(tr("This is no address of a web page"), textOf(id), QStringLiteral("exclamationmark.triangle"));
  else if (!visit_(QUrl(toQString(*address))))
    shell_.showToast(tr("No browser opens it"), toQString(*address), QStringLiteral("exclamationmark.triangle"));
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
  icons_.want(address);
}

}  // namespace ambrel
