#pragma once
// Answers of the weather services, as they were recorded.

#include <QFile>

namespace ambrel {

inline QByteArray sample(const char* name) {
  QFile file(QStringLiteral(AMBREL_CASES "/weather/") + QLatin1String(name));
  if (!file.open(QIODevice::ReadOnly)) qFatal("no sample %s", name);
  return file.readAll();
}

}  // namespace ambrel
