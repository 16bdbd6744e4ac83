#pragma once
// An amount of one currency in another, at the rates of the day's list.

#include "app/base/GadgetListModel.h"
#include "app/feeds/Feed.h"
#include "app/feeds/FeedFaces.h"

namespace ambrel {

class CurrencyModel : public ambrel::Feed {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::CurrencyFace face READ face NOTIFY changed FINAL)
  Q_PROPERTY(ambrel::RowList* rows READ rows CONSTANT FINAL)

 public:
  static constexpr const char* file = "currency-rates.json";

  explicit CurrencyModel(FeedSeams seams, QObject* parent = nullptr);

  const CurrencyFace& face() const { return face_; }
  RowList* rows() { return &rows_; }
  // Stored when the panel closes.
  Q_INVOKABLE void setAmount(const QString& amount);
  // A currency that is the other one already takes its place.
  Q_INVOKABLE void setFrom(const QString& code);
  Q_INVOKABLE void setTo(const QString& code);
  Q_INVOKABLE void swap();
  Q_INVOKABLE void copy();
  // The stored choice may be another.
  void reload();

 protected:
  void closed() override;
  std::optional<Instant> load() override;
  void ask() override;
  void show(Instant now) override;

 private:
  void choose(CurrencyWish wish);

  CurrencyWish wish_;
  std::optional<CurrencyRates> rates_;
  CurrencyFace face_;
  GadgetListModel<CurrencyRow> rows_;
};

}  // namespace ambrel
