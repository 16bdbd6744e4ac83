#pragma once
// One thing on the disk that the user asks about, and what Buddy says to it.

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>
#include <functional>
#include <stop_token>
#include <string>
#include <vector>

#include "app/base/Face.h"
#include "core/base/Calendar.h"
#include "core/disk.h"
#include "platform/LanguageModel.h"

namespace ambrel {

struct DiskAnswer {
  Q_GADGET
  QML_VALUE_TYPE(diskAnswer)
 public:
  FACE_FIELDS(bool, isOpen);
  FACE_FIELDS(QString, itemID, name);
  FACE_FIELDS(QString, detail);  // its size and its place
  FACE_FIELDS(QString, question, answer);
  FACE_FIELDS(bool, isAnswering);
  FACE_FIELDS(bool, takesQuestions);  // questions of one's own get answers of their own
  friend bool operator==(const DiskAnswer&, const DiskAnswer&) = default;
};

class DiskQuestion : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::DiskAnswer face READ face NOTIFY faceChanged FINAL)

 public:
  struct Seams {
    LanguageModel* model = nullptr;
    std::function<Instant()> now;
    Calendar calendar;
    std::string home;
  };
  explicit DiskQuestion(Seams seams, QObject* parent = nullptr);
  ~DiskQuestion() override;

  const DiskAnswer& face() const { return face_; }

  // Asks "Is it safe to delete this?" at once.
  void pick(DiskTree item, std::vector<DiskFinding> findings);
  Q_INVOKABLE void ask(const QString& question);
  Q_INVOKABLE void close();

 Q_SIGNALS:
  void faceChanged();

 private:
  Seams seams_;
  DiskTree picked_;
  std::vector<DiskFinding> findings_;
  DiskAnswer face_;
  std::stop_source asking_;
};

}  // namespace ambrel
