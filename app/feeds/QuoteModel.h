#pragma once
// The quote of the local day.

#include "app/feeds/Feed.h"

namespace ambrel {

class QuoteModel : public ambrel::TimedModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(QString text READ text NOTIFY changed FINAL)

 public:
  explicit QuoteModel(FeedSeams seams, QObject* parent = nullptr);

  const QString& text() const { return text_; }
  void setSeen(bool isSeen);
  Q_INVOKABLE void copy() { seams_.shell.copyText(text_); }

  std::optional<Instant> due() const override;
  void tick(Instant now) override;
  void clockMoved(Seconds /*by*/, Instant now) override { tick(now); }

 Q_SIGNALS:
  void changed();

 private:
  FeedSeams seams_;
  bool isSeen_ = false;
  Instant midnight_{};
  QString text_;
};

}  // namespace ambrel
