#pragma once
// One question on its way: requests to a model server, until its answer is whole.

#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>

#include "app/assistant/ChatServerModel.h"
#include "core/assistant/ChatExchange.h"

namespace ambrel {

QNetworkRequest chatRequestTo(const QString& address, const char* call);

// Deletes itself when it has ended.
class ChatCall : public QObject {
  Q_OBJECT

 public:
  struct Seams {
    QNetworkAccessManager& network;
    ChatServerLimits limits;
    QString address;
    std::function<std::string(const AssistantCall&)> perform;
    std::function<void(const std::string&)> grown;
    std::function<void(const LanguageModel::Answer&)> done;
  };
  ChatCall(Seams seams, ChatExchange exchange, std::stop_token stop, QObject* parent);

 private:
  void ask();
  void take();
  void replyEnded();
  QString problemOf(const QNetworkReply& reply) const;
  void end(const LanguageModel::Answer& answer);
  void leave();

  Seams seams_;
  ChatExchange exchange_;
  QNetworkReply* reply_ = nullptr;
  QByteArray refusal_;  // the body of an answer that is none
  std::string shown_;
  QString problem_;  // why it was given up
  QTimer silence_, whole_;
  bool hasEnded_ = false;
  // Last: it may act as soon as it is made.
  std::stop_callback<std::function<void()>> stopped_;
};

}  // namespace ambrel
