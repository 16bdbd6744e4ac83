#pragma once
// What the program keeps of its user and what it reads: where it is, how much, and its deletion.

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include "app/base/Face.h"
#include "app/base/GadgetListModel.h"
#include "core/base/PresentCalendar.h"
#include "core/settings/PersonalData.h"

namespace ambrel {

struct PrivacyRow {
  Q_GADGET
  QML_VALUE_TYPE(privacyRow)
  FACE_FIELDS(QString, rowId, title, detail, place);  // "12.3 MB in ~/.local/share/Ambrel"; empty: nothing is there
  FACE_FIELD(bool, isKept);                           // ours, so that it can be deleted

 public:
  QString folder;  // that "Show" opens
  bool operator==(const PrivacyRow&) const = default;
};

class PrivacyModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::RowList* kept READ kept CONSTANT FINAL)
  Q_PROPERTY(ambrel::RowList* read READ readFolders CONSTANT FINAL)

 public:
  struct Source {
    QString title, detail;
    std::filesystem::path folder;
  };
  // `sources`: what belongs to others, and is only read.
  PrivacyModel(PersonalPlaces places, std::vector<Source> sources, std::filesystem::path home,
               const PresentCalendar& calendar, QObject* parent = nullptr);

  RowList* kept() { return &kept_; }
  RowList* readFolders() { return &read_; }

  // Looks at what is there now.
  Q_INVOKABLE void look();
  // Opens its folder in the file manager.
  Q_INVOKABLE void show(const QString& id);
  // The program ends, deletes, and starts again, so that nothing that it still knows is written once more. "": all.
  Q_INVOKABLE void deleteKept(const QString& id) { Q_EMIT deletionAsked(id); }

 Q_SIGNALS:
  void deletionAsked(const QString& id);

 private:
  QString placeOf(const std::vector<std::filesystem::path>& files) const;
  QString shortPath(const std::filesystem::path& path) const;

  PersonalPlaces places_;
  std::vector<Source> sources_;
  std::filesystem::path home_;
  const PresentCalendar& calendar_;
  GadgetListModel<PrivacyRow, &PrivacyRow::rowId> kept_, read_;
};

}  // namespace ambrel
