#include "app/feeds/FeedFaces.h"

#include "app/base/StoredValue.h"
#include "core/base/LocalText.h"
#include "core/web/Address.h"

namespace ambrel {
namespace {

QString tr(const char* text) { return QObject::tr(text); }

QString counted(const Calendar& calendar, std::int64_t count, const char* one, const char* many) {
  return count == 1 ? tr(one) : tr(many).arg(toQString(compactCount(calendar, count)));
}

QString countsOf(const Story& story, const Calendar& calendar) {
  return counted(calendar, story.points, "1 point", "%1 points") + QStringLiteral(", ") +
         counted(calendar, story.comments, "1 comment", "%1 comments");
}

QString nameOf(const Calendar& calendar, const QString& code) {
  return toQString(currencyName(calendar, code.toStdString()));
}

QString money(const Calendar& calendar, double amount, const QString& code) {
  return toQString(moneyText(calendar, amount, code.toStdString()));
}

}  // namespace

std::vector<StoryRow> storyRows(const StoryList& list, const Calendar& calendar) {
  std::vector<StoryRow> rows;
  for (const Story& story : list.stories) {
    StoryRow row;
    row.id = QString::number(story.id);
    row.rank = QString::number(rows.size() + 1);
    row.title = toQString(story.title);
    row.detail = countsOf(story, calendar);
    if (const QString site = toQString(siteName(story.address)); !site.isEmpty())
      row.detail += QStringLiteral(", ") + site;
    rows.push_back(std::move(row));
  }
  return rows;
}

StoriesFace storiesFace(const StoryList& list, const QString& problem, const Calendar& calendar, Instant now) {
  StoriesFace face;
  if (list.stories.empty()) {
    face.problem = problem;
    return face;
  }
  const Story& top = list.stories.front();
  face.title = toQString(top.title);
  face.detail = countsOf(top, calendar);
  face.points = toQString(compactCount(calendar, top.points));
  face.updated = tr("Updated %1").arg(toQString(shortTime(calendar, list.fetchedAt)));
  // One regular request was due and has failed.
  if (now - list.fetchedAt > 2 * storiesInterval)
    face.staleSince = toQString(relativeAge(calendar, list.fetchedAt, now));
  return face;
}

CurrencyFace currencyFace(const std::optional<CurrencyRates>& rates, const CurrencyWish& wish, const QString& problem,
                          const Calendar& calendar) {
  CurrencyFace face;
  face.amount = wish.amount;
  face.from = wish.from;
  face.to = wish.to;
  face.fromName = nameOf(calendar, wish.from);
  face.toName = nameOf(calendar, wish.to);
  if (!rates) {
    face.problem = problem;
    return face;
  }
  if (const auto day = dayOf(*rates, calendar))
    face.day = tr("Rates of %1").arg(toQString(formattedDate(calendar, *day, "dMMM")));
  const std::string from = wish.from.toStdString(), to = wish.to.toStdString();
  const auto rate = converted(*rates, 1, from, to);
  const auto amount = typedAmount(calendar, wish.amount.toStdString());
  if (!rate)
    face.fault = tr("No rate for %1").arg(rates->rates.contains(from) ? wish.to : wish.from);
  else
    face.rateText = tr("1 %1 = %2").arg(wish.from, toQString(rateText(calendar, *rate, to)));
  if (!amount) face.fault = wish.amount.trimmed().isEmpty() ? tr("Type an amount") : tr("This is not an amount");
  if (!rate || !amount) return face;
  face.result = money(calendar, *amount * *rate, wish.to);
  face.source = money(calendar, *amount, wish.from);
  return face;
}

std::vector<CurrencyRow> currencyRows(const std::optional<CurrencyRates>& rates, const CurrencyWish& wish,
                                      const Calendar& calendar) {
  std::vector<CurrencyRow> rows;
  if (!rates) return rows;
  const auto amount = typedAmount(calendar, wish.amount.toStdString());
  for (const auto& [code, rate] : rates->rates) {
    CurrencyRow row;
    row.id = toQString(code);
    row.name = nameOf(calendar, row.id);
    const auto value = amount ? converted(*rates, *amount, wish.from.toStdString(), code) : std::nullopt;
    if (value) row.amount = money(calendar, *value, row.id);
    row.isFrom = row.id == wish.from;
    row.isTo = row.id == wish.to;
    rows.push_back(std::move(row));
  }
  return rows;
}

}  // namespace ambrel
