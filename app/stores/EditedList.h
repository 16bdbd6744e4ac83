#pragma once
// A short list that the user edits: to-dos, snippets, bookmarks.

#include "app/base/Face.h"
#include "app/base/GadgetListModel.h"
#include "app/stores/DocumentKeeper.h"
#include "core/stores/EntryList.h"

namespace ambrel {

struct EntryRow {
  Q_GADGET
  QML_VALUE_TYPE(entryRow)
  Q_PROPERTY(QString entryId MEMBER id FINAL)

 public:
  QString id{};
  FACE_FIELDS(QString, title, text);      // as they are edited
  FACE_FIELDS(QString, name, detail);     // as they are shown, in a line each
  FACE_FIELDS(QString, picture, letter);  // of a bookmark: the site's icon, or what stands for it
  FACE_FIELDS(bool, isDone);

  bool operator==(const EntryRow&) const = default;
};

struct ListFace {
  Q_GADGET
  QML_VALUE_TYPE(listFace)
 public:
  FACE_FIELDS(int, count, done);
  FACE_FIELDS(QString, first, second);  // the names of the first two that are not done
  FACE_FIELDS(QString, removed);        // what `undo` brings back, in words; empty when there is nothing
  FACE_FIELDS(QString, problem);        // why it is not saved

  bool operator==(const ListFace&) const = default;
};

// Ids travel as texts; one that is unknown changes nothing.
class EditedList : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::RowList* rows READ rows CONSTANT FINAL)
  Q_PROPERTY(ambrel::ListFace face READ face NOTIFY faceChanged FINAL)

 public:
  // `name` begins sentences: "The to-do list".
  EditedList(ListKind kind, std::filesystem::path file, const QString& name, Shell& shell, QObject* parent = nullptr);

  virtual void open() { keeper_.open(); }
  RowList* rows() { return &rows_; }
  const ListFace& face() const { return face_; }
  const Entries& entries() const { return file_.entries(); }

  // Adds what was typed at the end. Returns the id; empty if the list does not take it.
  Q_INVOKABLE virtual QString add(const QString& typed);
  // As somebody types. An empty title of a to-do changes nothing; the address of a bookmark counts once it is finished.
  Q_INVOKABLE virtual void edit(const QString& id, const QString& title, const QString& text);
  // The edit has ended.
  Q_INVOKABLE virtual void finish() { keeper_.save(); }
  Q_INVOKABLE void toggle(const QString& id);
  Q_INVOKABLE void move(const QString& id, int places);
  Q_INVOKABLE void remove(const QString& id);
  Q_INVOKABLE void removeDone();
  Q_INVOKABLE void undo();
  // The text that is copied; without one, the title.
  Q_INVOKABLE QString textOf(const QString& id) const;

 Q_SIGNALS:
  void faceChanged();
  // Others have changed the list.
  void takenOver();

 protected:
  void update();
  void setText(const QString& id, std::string text);
  // Fills the fields that only some lists have.
  virtual void complete(EntryRow& /*row*/) {}

 private:
  void keepRemoval(Removal removal);

  SharedEntries file_;
  DocumentKeeper keeper_;
  std::vector<Removal> removals_;  // the latest last
  GadgetListModel<EntryRow> rows_;
  ListFace face_;
};

}  // namespace ambrel
