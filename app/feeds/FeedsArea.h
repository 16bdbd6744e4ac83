#pragma once
// What comes from the network or with the day: stories, rates, a quote.

#include "app/base/DueTimer.h"
#include "app/feeds/CurrencyModel.h"
#include "app/feeds/QuoteModel.h"
#include "app/feeds/StoriesModel.h"

namespace ambrel {

class FeedsArea : public Area {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::StoriesModel* stories READ stories CONSTANT FINAL)
  Q_PROPERTY(ambrel::CurrencyModel* currency READ currency CONSTANT FINAL)
  Q_PROPERTY(ambrel::QuoteModel* quote READ quote CONSTANT FINAL)

 public:
  // due outlives it, as does what the seams refer to.
  FeedsArea(const FeedSeams& seams, DueTimer& due, QObject* parent = nullptr);

  StoriesModel* stories() { return &stories_; }
  CurrencyModel* currency() { return &currency_; }
  QuoteModel* quote() { return &quote_; }

  void widgetsChanged(const std::set<DockWidget>& onBar, bool areSeen, Instant now) override;
  QVariantMap sample(DockWidget widget) override;
  void defaultsChanged(const std::set<std::string>& keys) override;

 private:
  FeedSeams seams_;
  StoriesModel stories_;
  CurrencyModel currency_;
  QuoteModel quote_;
};

}  // namespace ambrel
