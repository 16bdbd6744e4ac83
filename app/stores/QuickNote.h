#pragma once
// The quick note: one plain text.

#include "app/base/Face.h"
#include "app/stores/DocumentKeeper.h"

namespace ambrel {

struct NoteFace {
  Q_GADGET
  QML_VALUE_TYPE(noteFace)
 public:
  FACE_FIELDS(QString, title, next);  // the first two lines that are not blank
  FACE_FIELDS(QString, problem);      // why it is not saved
  FACE_FIELDS(bool, isEmpty, canBringBack);

  bool operator==(const NoteFace&) const = default;
};
NoteFace noteFace(const QString& text);

class QuickNote : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged FINAL)
  Q_PROPERTY(ambrel::NoteFace face READ face NOTIFY faceChanged FINAL)

 public:
  QuickNote(std::filesystem::path file, Shell& shell, QObject* parent = nullptr);

  void open() { keeper_.open(); }
  QString text() const;
  // As somebody types.
  void setText(const QString& text);
  const NoteFace& face() const { return face_; }
  // The user is at something else.
  Q_INVOKABLE void finish() { keeper_.save(); }
  // The text before it was emptied.
  Q_INVOKABLE void bringBack();

 Q_SIGNALS:
  void textChanged();
  void faceChanged();

 private:
  void update();

  SharedText file_;
  DocumentKeeper keeper_;
  NoteFace face_;
  QString emptied_;
};

}  // namespace ambrel
