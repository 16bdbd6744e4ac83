#include "app/kit/LongTexts.h"

#include <algorithm>

namespace ambrel {

QString LongTexts::translate(const char*, const char* text, const char*, int) const {
  const QString own = QString::fromUtf8(text);
  // Words, so that lines can break between them as between those of a language.
  QString more;
  for (qsizetype left = std::max<qsizetype>(0, own.size() * 2 / 5 - 2); left > 0; left -= 6)
    more += u' ' + QString(std::min<qsizetype>(5, left), QChar(u'e'));
  return u'[' + own + more + u']';
}

}  // namespace ambrel
