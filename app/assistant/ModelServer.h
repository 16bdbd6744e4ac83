#pragma once
// The settings rows of the language model: whether one answers, where it is, and which it is.

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include "app/assistant/ChatServerModel.h"
#include "app/base/Face.h"

namespace ambrel {

struct ModelServerFace {
  Q_GADGET
  QML_VALUE_TYPE(modelServerFace)
 public:
  FACE_FIELDS(bool, isOn);
  FACE_FIELDS(QString, address, model);  // as chosen; empty: by itself
  FACE_FIELDS(QString, status);          // what was found
  FACE_FIELDS(QString, stranger);        // the computer that questions would go to, and that is not allowed yet
  friend bool operator==(const ModelServerFace&, const ModelServerFace&) = default;
};

class ModelServer : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::ModelServerFace face READ face NOTIFY faceChanged FINAL)

 public:
  // Both outlive it.
  ModelServer(UserDefaults& defaults, ChatServerModel& model, QObject* parent = nullptr);

  const ModelServerFace& face() const { return face_; }
  // Looks where the model is.
  Q_INVOKABLE void look();
  Q_INVOKABLE void setOn(bool isOn);
  // An address without its scheme is completed. One of another computer asks to be allowed. False for no address.
  Q_INVOKABLE bool setAddress(const QString& text);
  Q_INVOKABLE void setModel(const QString& name);
  // Questions may go to the computer that was typed.
  Q_INVOKABLE void allow();
  // Others have changed the settings.
  void reload();

 Q_SIGNALS:
  void faceChanged();

 private:
  void update();

  UserDefaults& defaults_;
  ChatServerModel& model_;
  ModelServerFace face_;
};

}  // namespace ambrel
