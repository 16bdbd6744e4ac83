#pragma once
// A server with LibreTranslate's API. Requests have no cookies and no logins, and follow no redirections.

#include <QNetworkAccessManager>
#include <QString>
#include <functional>
#include <stop_token>

#include "core/tools/Translation.h"

namespace ambrel {

class TranslationServer : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;

  // `known` is told whether such a server answers there; within seconds.
  void check(const QString& address, std::function<void(bool isThere)> known);
  // `done` is called once, later; not after `stop` was requested.
  void translate(const QString& address, const TranslationTask& task, std::stop_token stop,
                 std::function<void(const Translation&)> done);

 private:
  QNetworkAccessManager& network();

  QNetworkAccessManager* network_ = nullptr;
};

}  // namespace ambrel
