#pragma once
// The conversation with Buddy: questions, their answers by a language model or by the command grammar, and what is
// being typed. Nothing of it is stored.

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>
#include <functional>
#include <stop_token>
#include <vector>

#include "app/base/Face.h"
#include "app/base/GadgetListModel.h"
#include "app/buddy/Buddy.h"
#include "platform/LanguageModel.h"

namespace ambrel {

struct AssistantTurn {
  Q_GADGET
 public:
  FACE_FIELDS(QString, turn);  // its id
  FACE_FIELDS(QString, question, answer);
  FACE_FIELDS(bool, isThinking);  // nothing of the answer has come yet
  FACE_FIELDS(bool, isWhole);     // the answer grows no more
  friend bool operator==(const AssistantTurn&, const AssistantTurn&) = default;
};

class Assistant : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  // What is being typed.
  Q_PROPERTY(QString prompt READ prompt WRITE setPrompt NOTIFY promptChanged FINAL)
  // Rows are AssistantTurn, oldest first.
  Q_PROPERTY(ambrel::RowList* turns READ turns CONSTANT FINAL)
  Q_PROPERTY(bool isResponding READ isResponding NOTIFY isRespondingChanged FINAL)
  // Why the grammar answers; empty while a language model does.
  Q_PROPERTY(QString warning READ warning NOTIFY warningChanged FINAL)
  Q_PROPERTY(QStringList suggestions READ suggestions CONSTANT FINAL)

 public:
  using Perform = std::function<std::string(const AssistantCall&)>;
  struct Seams {
    LanguageModel& model;
    Buddy& buddy;
    std::function<Perform()> performer;  // of the calls of a question that is asked now
    std::function<Instant()> now;
  };
  explicit Assistant(Seams seams, QObject* parent = nullptr);
  ~Assistant() override;

  const QString& prompt() const { return prompt_; }
  void setPrompt(const QString& prompt);
  RowList* turns() { return &turns_; }
  bool isResponding() const { return isResponding_; }
  const QString& warning() const { return warning_; }
  static QStringList suggestions();

  // The panel opens: a conversation of less than ten minutes ago goes on.
  void open();
  // Submits what is typed. While an answer is awaited it stays where it is.
  Q_INVOKABLE void send();
  // The same for a text from elsewhere.
  Q_INVOKABLE void ask(const QString& text);
  // Ends the answer that is awaited; what has come of it stays.
  Q_INVOKABLE void stop();
  Q_INVOKABLE void newConversation();

 Q_SIGNALS:
  void promptChanged();
  void isRespondingChanged();
  void warningChanged();

 private:
  void answer(const QString& text, const Perform& perform);
  void answerByModel(const QString& text, const Perform& perform);
  void show(const QString& text, bool isWhole);
  void endWaiting();
  void takeAbsence();

  Seams seams_;
  QString prompt_, warning_;
  bool isResponding_ = false;
  std::vector<AssistantTurn> rows_;
  GadgetListModel<AssistantTurn, &AssistantTurn::turn> turns_;
  std::vector<ChatTurn> session_;  // what the model has been asked and has said
  std::optional<Instant> lastActivity_;
  std::stop_source asking_;
  int generation_ = 0;  // of the question; whatever belongs to an earlier one comes too late
};

}  // namespace ambrel
