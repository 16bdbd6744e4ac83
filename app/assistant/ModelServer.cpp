#include "app/assistant/ModelServer.h"

#include <QUrl>

#include "app/base/StoredValue.h"
#include "app/web/ServerAddress.h"
#include "core/settings.h"

namespace ambrel {

ModelServer::ModelServer(UserDefaults& defaults, ChatServerModel& model, QObject* parent)
    : QObject(parent), defaults_(defaults), model_(model) {
  connect(&model, &ChatServerModel::looked, this, &ModelServer::update);
  update();
}

void ModelServer::look() { model_.check({}); }

void ModelServer::setOn(bool isOn) {
  store(defaults_, setting::askUsesModel.key, isOn);
  reload();
}

bool ModelServer::setAddress(const QString& text) {
  const auto address = typedServerAddress(text);
  if (!address) return false;
  store(defaults_, setting::modelServerURL.key, DefaultsValue{address->toStdString()});
  reload();
  return true;
}

void ModelServer::setModel(const QString& name) {
  store(defaults_, setting::modelName.key, DefaultsValue{name.trimmed().toStdString()});
  reload();
}

void ModelServer::allow() {
  store(defaults_, setting::modelServerAllowedURL.key, DefaultsValue{face_.address.toStdString()});
  reload();
}

void ModelServer::reload() {
  model_.forget();
  model_.check({});
  update();
}

void ModelServer::update() {
  ModelServerFace face{.isOn = valueOf(defaults_, setting::askUsesModel),
                       .address = QString::fromStdString(valueOf(defaults_, setting::modelServerURL)),
                       .model = QString::fromStdString(valueOf(defaults_, setting::modelName))};
  if (!face.address.isEmpty() && !ChatServerModel::isAllowed(face.address, defaults_))
    face.stranger = QUrl(face.address).host();
  const auto absence = model_.absence();
  face.status = absence ? toQString(sentence(*absence))
                        : tr("%1 answers at %2.").arg(model_.model(), QUrl(model_.address()).authority());
  if (face == face_) return;
  face_ = face;
  Q_EMIT faceChanged();
}

}  // namespace ambrel
