#pragma once
// The small forms that the texts of the computer's parts are made of.

#include <QCoreApplication>
#include <QString>
#include <QStringList>
#include <cmath>

#include "app/base/StoredValue.h"
#include "app/telemetry/LiveFace.h"
#include "core/base/LocalText.h"
#include "core/telemetry.h"

namespace ambrel::words {

inline QString tr(const char* text) { return QCoreApplication::translate("Telemetry", text); }

// There has been no reading yet.
inline TileReading measuring(const char* symbol = "") {
  return {.value = QStringLiteral("–"), .subLine = tr("Measuring…"), .symbol = QLatin1String(symbol)};
}

// A message in place of all figures.
inline TileReading saying(const QString& message, const QString& shortMessage, const QString& help = {}) {
  return {.message = message, .shortMessage = shortMessage, .tip = message, .help = help};
}

inline TileReading missing(const QString& message, const char* symbol = "") {
  return {.message = message,
          .shortMessage = tr("None"),
          .symbol = QLatin1String(symbol),
          .tip = message,
          .isMissing = true};
}

inline QString number(const Calendar& calendar, double value) {
  // No "-0".
  return toQString(decimal(calendar, std::round(value) + 0.0, 0));
}

// "23 %" of a share of one.
inline QString percent(const Calendar& calendar, double share) {
  return number(calendar, share * 100) + QStringLiteral(" %");
}

// Of one core: "142 %", "0.4 %".
inline QString coresText(const Calendar& calendar, double cores) {
  const double value = cores * 100;
  return toQString(decimal(calendar, value, value < 9.95 ? 1 : 0)) + QStringLiteral(" %");
}

inline QString size(const Calendar& calendar, std::uint64_t bytes) {
  return toQString(fileSize(calendar, static_cast<std::int64_t>(bytes)));
}

inline QString briefSize(const Calendar& calendar, std::uint64_t bytes) {
  return toQString(briefFileSize(calendar, static_cast<std::int64_t>(bytes)));
}

inline QString dbm(const Calendar& calendar, int value) { return number(calendar, value) + QStringLiteral(" dBm"); }

// Names come from outside: characters that would break the line become blanks.
inline QString oneLine(const std::string& name) {
  QString text = toQString(name);
  for (QChar& character : text)
    if (character.category() == QChar::Other_Control || character == QChar::LineSeparator ||
        character == QChar::ParagraphSeparator)
      character = u' ';
  return text.simplified();
}

inline QString joined(const QStringList& parts) {
  QStringList present;
  for (const QString& part : parts)
    if (!part.isEmpty()) present.append(part);
  return present.join(QStringLiteral(", "));
}

inline QString thermalName(ThermalLevel level) {
  switch (level) {
    case ThermalLevel::nominal:
      return tr("Nominal");
    case ThermalLevel::fair:
      return tr("Fair");
    case ThermalLevel::serious:
      return tr("Serious");
    case ThermalLevel::critical:
      return tr("Critical");
  }
  return {};
}

// "12 GB of 64 GB free"
inline QString spaceText(const Calendar& calendar, const VolumeInfo& volume) {
  if (volume.isRemote) return tr("Network folder");
  if (volume.totalBytes <= 0) return tr("Size unknown");
  return tr("%1 of %2 free")
      .arg(size(calendar, static_cast<std::uint64_t>(volume.freeBytes)),
           size(calendar, static_cast<std::uint64_t>(volume.totalBytes)));
}

}  // namespace ambrel::words
