#pragma once
// Bookmarks: a list of addresses, with the icons of their sites.

#include <functional>
#include <map>

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
  QString add(const QString& typed) override;
  void edit(const QString& id, const QString& title, const QString& address) override;
  void finish() override;
  Q_INVOKABLE void visit(const QString& id);
  // Asks the sites for icons that are not there yet.
  Q_INVOKABLE void lookForIcons();

 protected:
  void complete(EntryRow& row) override;

 private:
  void refuse(const QString& text);

  Visit visit_;
  Shell& shell_;
  SiteIcons icons_;
  std::map<QString, QString> typed_;  // addresses that are being edited, by the bookmark's id
};

}  // namespace ambrel
