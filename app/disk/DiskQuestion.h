#pragma once
// The user's question about one item, and the answer by the rules or the language model.

#include <QObject>
#include <QtQml/qqmlregistration.h>
#include <functional>
#include <stop_token>
#include <string>
#include <vector>

#include "app/disk/DiskFaces.h"
#include "core/disk.h"
#include "platform/LanguageModel.h"

namespace ambrel {

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
  void publish();

  Seams seams_;
  DiskInquiry inquiry_;
  std::vector<DiskFinding> findings_;
  DiskAnswer face_;
  std::stop_source asking_;
};

}  // namespace ambrel
