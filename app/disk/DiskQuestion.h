#pragma once
// One thing on the disk that the user asks about, and what Buddy says to it.

#include <QObject>
#include <QtQml/qqmlregistration.h>
#include <functional>
#include <stop_token>
#include <string>
#include <vector>

#include "core/base/Calendar.h"
#include "core/disk.h"
#include "platform/LanguageModel.h"

namespace ambrel {

class DiskQuestion : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(bool isOpen READ isOpen NOTIFY pickedChanged)
  Q_PROPERTY(QString name READ name NOTIFY pickedChanged)
  // Its size and its place.
  Q_PROPERTY(QString detail READ detail NOTIFY pickedChanged)
  Q_PROPERTY(QString itemID READ itemID NOTIFY pickedChanged)
  Q_PROPERTY(QString question READ question NOTIFY answerChanged)
  Q_PROPERTY(QString answer READ answer NOTIFY answerChanged)
  Q_PROPERTY(bool isAnswering READ isAnswering NOTIFY answerChanged)
  // Whether questions of one's own get answers of their own.
  Q_PROPERTY(bool takesQuestions READ takesQuestions NOTIFY pickedChanged)

 public:
  struct Seams {
    LanguageModel* model = nullptr;
    std::function<Instant()> now;
    Calendar calendar;
    std::string home;
  };
  explicit DiskQuestion(Seams seams, QObject* parent = nullptr);
  ~DiskQuestion() override;

  bool isOpen() const { return picked_ != nullptr; }
  const DiskTree& picked() const { return picked_; }
  QString name() const;
  QString detail() const;
  QString itemID() const;
  QString question() const { return question_; }
  QString answer() const { return answer_; }
  bool isAnswering() const { return isAnswering_; }
  bool takesQuestions() const { return seams_.model && seams_.model->isAvailable(); }

  // Asks "Is it safe to delete this?" at once.
  void pick(DiskTree item, std::vector<DiskFinding> findings);
  Q_INVOKABLE void ask(const QString& question);
  Q_INVOKABLE void close();

 Q_SIGNALS:
  void pickedChanged();
  void answerChanged();

 private:
  Seams seams_;
  DiskTree picked_;
  std::vector<DiskFinding> findings_;
  QString question_, answer_;
  bool isAnswering_ = false;
  std::stop_source asking_;
};

}  // namespace ambrel
