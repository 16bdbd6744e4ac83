#pragma once
// Texts as a language with long words would have them, to see whether they have room: "Settings" is "[Settings eee]".

#include <QTranslator>

namespace ambrel {

// Every text that can be translated is 40 % longer, at least by two characters. Installed by the program when
// TILEBAY_LONG_TEXTS is set, and by tests.
class LongTexts : public QTranslator {
 public:
  using QTranslator::QTranslator;

  bool isEmpty() const override { return false; }
  QString translate(const char* context, const char* text, const char* disambiguation, int count) const override;
};

}  // namespace ambrel
