#pragma once
// A folder: its newest items, while somebody can see them.

#include <QUrl>
#include <QtQml/qqmlregistration.h>

#include "app/base/Area.h"
#include "app/base/Face.h"
#include "app/base/GadgetListModel.h"
#include "app/base/PacedWork.h"
#include "core/base/PresentCalendar.h"
#include "core/base/UserDefaults.h"
#include "core/stores/NewestFiles.h"
#include "platform/FolderWatch.h"

namespace ambrel {

struct FolderRow {
  Q_GADGET
  QML_VALUE_TYPE(folderRow)
  Q_PROPERTY(QString rowId MEMBER id FINAL)  // its name

 public:
  QString id{};
  FACE_FIELDS(QString, name, detail, symbol);  // "report.pdf", "1.2 MB, 14:30", "doc.text"
  FACE_FIELDS(bool, isLoading);                // then the detail is "1.2 MB so far"
  QUrl url{};

  bool operator==(const FolderRow&) const = default;
};

struct FolderFace {
  Q_GADGET
  QML_VALUE_TYPE(folderFace)
 public:
  FACE_FIELDS(QString, name, path);                       // of the folder; empty while none is chosen
  FACE_FIELDS(QString, newest, newestDetail, countText);  // "report.pdf", "1.2 MB, 14:30", "12 items"
  FACE_FIELDS(QString, loadingText);                      // "2 loading"; empty without any
  FACE_FIELDS(QString, problem);                          // why nothing can be shown
  FACE_FIELDS(bool, isChosen, isEmpty);

  bool operator==(const FolderFace&) const = default;
};

class FolderModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::RowList* rows READ rows CONSTANT FINAL)
  Q_PROPERTY(ambrel::FolderFace face READ face NOTIFY faceChanged FINAL)

 public:
  static constexpr std::size_t mostRows = 20;
  // Files that are being written change without end.
  static constexpr std::chrono::milliseconds pause{1500};

  struct Seams {
    FolderWatch& watch;
    Background background;  // for work that may hang, as on a network disk
    PresentCalendar calendar;
    std::function<Instant()> now;
    std::function<bool(const QUrl&)> open;  // in the program that is for it; false when there is none
    std::function<void(const QUrl&)> showInFolder;
  };
  // All outlive it.
  FolderModel(Seams seams, Unfinished unfinished, Shell& shell, QObject* parent = nullptr);

  RowList* rows() { return &rows_; }
  const FolderFace& face() const { return face_; }
  // Whether somebody can see the tile; the folder is neither read nor watched otherwise.
  void setShown(bool isShown);
  // Empty or relative: none is chosen.
  void setPath(std::string path);

  // Reads it once more, if somebody can see it.
  Q_INVOKABLE void look() { reading_.ask(); }
  Q_INVOKABLE void open(const QString& rowId);
  Q_INVOKABLE void showInFolder(const QString& rowId);
  Q_INVOKABLE void openFolder();
  const FolderRow* row(const QString& rowId) const;
  // Shows it again: the text of a time depends on the present day and on the zone.
  void publish();

 Q_SIGNALS:
  void faceChanged();

 private:
  // It is watched from its first reading on: on a disk that does not answer, watching would hang, too.
  void follow();
  PacedWork::Job reading();
  void show(std::optional<FolderListing> listing, bool isRead);
  void openURL(const QUrl& url);

  Seams seams_;
  Unfinished unfinished_;
  Shell& shell_;
  std::string path_;
  bool isShown_ = false, isFollowed_ = false;
  PacedWork reading_;
  std::optional<FolderListing> listing_;
  bool isRead_ = false;  // the folder was asked already
  GadgetListModel<FolderRow> rows_;
  FolderFace face_;
};

// The one that the user has chosen for the tile.
class ChosenFolder : public ambrel::FolderModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")

 public:
  // All outlive it.
  ChosenFolder(UserDefaults& defaults, Seams seams, Shell& shell, QObject* parent = nullptr);

  // For a dialog: what it chooses is for the profile that is active now.
  std::function<void(const std::string& path)> chooser();
  // The stored path may be another.
  void reload();

 private:
  UserDefaults& defaults_;
};

}  // namespace ambrel
