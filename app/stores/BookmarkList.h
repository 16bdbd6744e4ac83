#pragma once
// Bookmarks: a list of addresses, with the icons of their sites.

#include <functional>

#include "app/stores/EditedList.h"
#include "app/stores/SiteIcons.h"

namespace ambrel {

class BookmarkList : public ambrel::EditedList {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")

 public:
  // Opens a page in the browser; false when there is none.
  using Visit = std::function<bool(const QUrl&)>;

  BookmarkList(std::filesystem::path file, std::filesystem::path iconFolder, Fetcher& fetcher, Background background,
               Visit visit, Shell& shell, QObject* parent = nullptr);

  void open() override;
  Q_INVOKABLE void visit(const QString& id);
  // Asks the sites for icons that are not there yet.
  Q_INVOKABLE void lookForIcons();

 protected:
  void complete(EntryRow& row) override;

 private:
  Visit visit_;
  Shell& shell_;
  SiteIcons icons_;
};

}  // namespace ambrel
