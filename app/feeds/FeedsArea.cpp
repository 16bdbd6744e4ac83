#include "app/feeds/FeedsArea.h"

#include "app/base/QmlObjects.h"
#include "core/settings.h"

namespace ambrel {

FeedsArea::FeedsArea(const FeedSeams& seams, DueTimer& due, QObject* parent)
    : Area(QStringLiteral("Feeds"), parent), seams_(seams), stories_(seams), currency_(seams), quote_(seams) {
  keep({this, &stories_, &currency_, &quote_});
  for (TimedModel* model : std::initializer_list<TimedModel*>{&stories_, &currency_, &quote_}) due.add(*model);
}

void FeedsArea::widgetsChanged(const std::set<DockWidget>& onBar, bool areSeen, Instant /*now*/) {
  stories_.setIsSeen(areSeen && onBar.contains(DockWidget::hackerNews));
  currency_.setIsSeen(areSeen && onBar.contains(DockWidget::currency));
  quote_.setSeen(areSeen && onBar.contains(DockWidget::quote));
}

QVariantMap FeedsArea::sample(DockWidget widget) {
  const Instant now = seams_.now();
  const Calendar calendar = seams_.calendar();
  const auto face = [](const auto& value) { return QVariantMap{{QStringLiteral("face"), QVariant::fromValue(value)}}; };
  if (widget == DockWidget::hackerNews)
    return face(storiesFace({now, {{1, tr("A small program that does one thing well").toStdString(), {}, 512, 143}}},
                            {}, calendar, now));
  if (widget == DockWidget::currency)
    return face(currencyFace(CurrencyRates{now, calendar.dayKey(now), {{"EUR", 1}, {"USD", 1.09}}},
                             {QStringLiteral("100"), QStringLiteral("USD"), QStringLiteral("EUR")}, {}, calendar));
  return {};
}

void FeedsArea::defaultsChanged(const std::set<std::string>& keys) {
  if (keys.contains(setting::hackerNewsURL.key)) stories_.restart();
  if (keys.contains(setting::currencyRatesURL.key)) currency_.restart();
  for (const char* key : {"currencyAmount", "currencyFrom", "currencyTo"})
    if (keys.contains(key)) return currency_.reload();
}

}  // namespace ambrel
