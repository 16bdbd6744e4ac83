#pragma once
// What the tiles and panels of the feeds show, made out of core's records.

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>
#include <optional>

#include "app/base/Face.h"
#include "core/feeds/Currency.h"
#include "core/feeds/Stories.h"

namespace ambrel {

struct StoryRow {
  Q_GADGET
  QML_VALUE_TYPE(storyRow)
  Q_PROPERTY(QString storyId MEMBER id FINAL)

 public:
  QString id{};
  FACE_FIELDS(QString, rank, title, detail);  // "1", "512 points, 143 comments, example.com"

  bool operator==(const StoryRow&) const = default;
};
std::vector<StoryRow> storyRows(const StoryList& list, const Calendar& calendar);

struct StoriesFace {
  Q_GADGET
  QML_VALUE_TYPE(storiesFace)
 public:
  FACE_FIELDS(QString, title, detail, points);  // of the top story: "512 points, 143 comments", "512"
  FACE_FIELDS(QString, updated);                // "Updated 14:30"
  FACE_FIELDS(QString, staleSince);             // "2 hr ago"; empty while it is fresh
  FACE_FIELDS(QString, problem);                // why there is nothing to show

  bool operator==(const StoriesFace&) const = default;
};
// `problem` counts while there is nothing.
StoriesFace storiesFace(const StoryList& list, const QString& problem, const Calendar& calendar, Instant now);

struct CurrencyRow {
  Q_GADGET
  QML_VALUE_TYPE(currencyRow)
  Q_PROPERTY(QString code MEMBER id FINAL)

 public:
  QString id{};
  FACE_FIELDS(QString, name, amount);  // "Swiss Franc", "CHF 93.10"
  FACE_FIELDS(bool, isFrom, isTo);

  bool operator==(const CurrencyRow&) const = default;
};

// What the user converts.
struct CurrencyWish {
  QString amount, from, to;
};

struct CurrencyFace {
  Q_GADGET
  QML_VALUE_TYPE(currencyFace)
 public:
  FACE_FIELDS(QString, amount, from, to);          // as typed; codes
  FACE_FIELDS(QString, fromName, toName);          // "US Dollar"
  FACE_FIELDS(QString, result, source, rateText);  // "€92.35", "$100.00", "1 USD = €0.92351"
  FACE_FIELDS(QString, day);                       // of the list: "Rates of Nov 20"
  FACE_FIELDS(QString, fault);                     // "This is not an amount"
  FACE_FIELDS(QString, problem);                   // why there is nothing to show

  bool operator==(const CurrencyFace&) const = default;
};
CurrencyFace currencyFace(const std::optional<CurrencyRates>& rates, const CurrencyWish& wish, const QString& problem,
                          const Calendar& calendar);
// All currencies with what the amount is in them, by their codes.
std::vector<CurrencyRow> currencyRows(const std::optional<CurrencyRates>& rates, const CurrencyWish& wish,
                                      const Calendar& calendar);

}  // namespace ambrel
