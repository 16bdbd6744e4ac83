#pragma once
// The language model of a server that speaks the chat API which many of them share. It is looked for when somebody
// wants it, never at the start, and on this machine alone unless the user has allowed another one.

#include <QElapsedTimer>
#include <QNetworkAccessManager>
#include <QString>
#include <chrono>

#include "core/base/UserDefaults.h"
#include "platform/LanguageModel.h"

namespace ambrel {

struct ChatServerLimits {
  std::chrono::milliseconds look{1500};     // for an answer to the question which models there are
  std::chrono::milliseconds seen{300};      // how long what was seen is taken for the present state
  std::chrono::milliseconds begin{120000};  // until the first words: the server may have to load the model
  std::chrono::milliseconds pause{45000};   // between two pieces
  std::chrono::milliseconds whole{600000};  // for a question, with its tools
};

class ChatServerModel : public QObject, public LanguageModel {
  Q_OBJECT

 public:
  // `defaults` has the settings askUsesModel, modelServerURL, modelServerAllowedURL and modelName, and outlives it.
  explicit ChatServerModel(const UserDefaults& defaults, ChatServerLimits limits = {}, QObject* parent = nullptr);

  std::optional<ModelAbsence> absence() const override { return absence_; }
  void check(std::function<void()> known) override;
  void respond(Request request, std::stop_token stop, std::function<void(const Answer&)> done) override;

  // What was seen counts no more: the settings are other ones, or a question has failed.
  void forget();
  // Where it was found, and under which name.
  const QString& address() const { return address_; }
  const QString& model() const { return model_; }

  // Whether questions may go to this address: it is on this machine, or the one that the user has allowed.
  static bool isAllowed(const QString& address, const UserDefaults& defaults);

 Q_SIGNALS:
  void looked();

 private:
  QNetworkAccessManager& network();
  void look(QStringList addresses, int generation);
  void take(std::optional<ModelAbsence> absence, const QString& address = {}, const QString& model = {});

  const UserDefaults& defaults_;
  ChatServerLimits limits_;
  QNetworkAccessManager* network_ = nullptr;
  std::optional<ModelAbsence> absence_ = ModelAbsence::notFound;
  QString address_, model_;
  QElapsedTimer seen_;
  int generation_ = 0;
  bool isLooking_ = false;
  std::vector<std::function<void()>> waiting_;
};

}  // namespace ambrel
