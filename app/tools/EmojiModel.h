#pragma once
// The emoji: a list that is read when the panel opens and released when it closes, and the recently used ones.

#include <QStringList>
#include <QtQml/qqmlregistration.h>

#include "app/base/Face.h"
#include "app/base/GadgetListModel.h"
#include "app/tools/ToolSeams.h"
#include "core/tools/EmojiList.h"

namespace ambrel {

struct EmojiRow {
  Q_GADGET
  QML_VALUE_TYPE(emojiRow)
 public:
  FACE_FIELDS(QString, text, name);
  bool operator==(const EmojiRow&) const = default;
};

struct EmojiFace {
  Q_GADGET
  QML_VALUE_TYPE(emojiFace)
 public:
  FACE_FIELDS(QString, last);                 // used last; empty without
  FACE_FIELDS(QStringList, groups, samples);  // their names, and an emoji of each
  FACE_FIELDS(int, group);                    // the one that is shown; 0: recently used, 1: the first group
  FACE_FIELDS(int, tone);                     // of skin; 0: none, 1: the lightest
  FACE_FIELDS(QStringList, tones);            // a hand in each
  FACE_FIELDS(QString, problem);              // why there are none
  bool operator==(const EmojiFace&) const = default;
};

class EmojiModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::EmojiFace face READ face NOTIFY faceChanged FINAL)
  Q_PROPERTY(ambrel::RowList* rows READ rows CONSTANT FINAL)

 public:
  // The seams outlive it. Keeps the defaults emojiRecent and emoji.tone.
  explicit EmojiModel(const ToolSeams& seams, QObject* parent = nullptr);

  const EmojiFace& face() const { return face_; }
  RowList* rows() { return &rows_; }
  void reload();

  // Of the panel.
  Q_INVOKABLE void begin();
  Q_INVOKABLE void end();
  // Searches all groups; an empty query shows the chosen one.
  Q_INVOKABLE void search(const QString& query);
  Q_INVOKABLE void setGroup(int group);
  Q_INVOKABLE void setTone(int tone);
  // Says whether there is one in that row.
  Q_INVOKABLE bool copy(int row);

 Q_SIGNALS:
  void faceChanged();

 private:
  void show();
  QString toned(const Emoji& emoji) const;

  const ToolSeams& seams_;
  EmojiFace face_;
  std::vector<Emoji> emoji_;
  std::vector<std::string> recent_;
  QString query_;
  GadgetListModel<EmojiRow, &EmojiRow::text> rows_;
  int generation_ = 0;  // of the opening
};

}  // namespace ambrel
