#include "app/feeds/CurrencyModel.h"

#include "app/base/QmlObjects.h"
#include "app/base/Replaced.h"
#include "app/base/StoredValue.h"
#include "core/settings.h"

namespace ambrel {
namespace {

constexpr const char *amountKey = "currencyAmount", *fromKey = "currencyFrom", *toKey = "currencyTo";

QString stored(const UserDefaults& defaults, const char* key, const char* otherwise) {
  return QString::fromStdString(defaults.string(key).value_or(otherwise));
}

}  // namespace

CurrencyModel::CurrencyModel(FeedSeams seams, QObject* parent) : Feed(std::move(seams), ratesInterval, parent) {
  keep({&rows_});
  reload();
}

void CurrencyModel::reload() {
  // What is being typed is stored when the panel closes.
  const QString amount = isOpen() ? wish_.amount : stored(seams_.defaults, amountKey, "100");
  wish_ = {amount, stored(seams_.defaults, fromKey, "USD"), stored(seams_.defaults, toKey, "EUR")};
  show(seams_.now());
}

void CurrencyModel::choose(CurrencyWish wish) {
  const auto put = [&](const char* key, QString& held, const QString& next) {
    if (replaced(held, next)) store(seams_.defaults, key, DefaultsValue{next.toStdString()});
  };
  wish_.amount = wish.amount;
  put(fromKey, wish_.from, wish.from);
  put(toKey, wish_.to, wish.to);
  show(seams_.now());
}

void CurrencyModel::setAmount(const QString& amount) { choose({amount, wish_.from, wish_.to}); }

void CurrencyModel::closed() {
  if (wish_.amount != stored(seams_.defaults, amountKey, "100"))
    store(seams_.defaults, amountKey, DefaultsValue{wish_.amount.toStdString()});
}

void CurrencyModel::setFrom(const QString& code) {
  choose({wish_.amount, code, code == wish_.to ? wish_.from : wish_.to});
}

void CurrencyModel::setTo(const QString& code) {
  choose({wish_.amount, code == wish_.from ? wish_.to : wish_.from, code});
}

void CurrencyModel::swap() { choose({wish_.amount, wish_.to, wish_.from}); }

void CurrencyModel::copy() {
  if (!face_.result.isEmpty()) seams_.shell.copyText(face_.result);
}

std::optional<Instant> CurrencyModel::load() {
  rates_ = loaded<CurrencyRates>(file);
  return rates_ ? std::optional(rates_->fetchedAt) : std::nullopt;
}

void CurrencyModel::ask() {
  const QUrl address = addressFrom(QString::fromStdString(valueOf(seams_.defaults, setting::currencyRatesURL)),
                                   QUrl(toQString(ratesAddress)));
  get(address, 256 << 10, [this](const Download& answer) {
    auto rates = answer.body ? decodeRates({answer.body->constData(), static_cast<std::size_t>(answer.body->size())})
                             : std::nullopt;
    if (!rates) return failed(answer);
    rates_ = std::move(rates);
    rates_->fetchedAt = seams_.now();
    keepIn(file, *rates_);
    succeeded();
  });
}

void CurrencyModel::show(Instant /*now*/) {
  const Calendar calendar = seams_.calendar();
  rows_.setRows(currencyRows(rates_, wish_, calendar));
  if (replaced(face_, currencyFace(rates_, wish_, problem(), calendar))) Q_EMIT changed();
}

}  // namespace ambrel
