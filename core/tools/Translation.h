#pragma once
// How a translation is asked for, of a language model or of a server with LibreTranslate's API
// (libretranslate.com/docs), and what their answers say.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/base/Calendar.h"

namespace ambrel {

struct TranslationLanguage {
  std::string code;  // "de", "zh-Hant"
  std::string name;  // in the user's own language
  friend bool operator==(const TranslationLanguage&, const TranslationLanguage&) = default;
};

// In the order of their names.
std::vector<TranslationLanguage> translationLanguages(const std::string& locale);
// The name of any code in the language of the locale; empty for what is none.
std::string languageName(const std::string& code, const std::string& locale);
// The code of the list that the locale speaks; "en" without one.
std::string ownLanguage(const std::string& locale);

struct TranslationTask {
  std::string text;
  std::string source;  // a code; empty to be found out
  std::string target;
  friend bool operator==(const TranslationTask&, const TranslationTask&) = default;
};
inline constexpr std::size_t longestTranslation = 20'000;  // bytes

struct Translation {
  std::string text;
  std::string source = {};   // what the text was found to be in; empty where that is not told
  std::string problem = {};  // why there is none: a sentence
  friend bool operator==(const Translation&, const Translation&) = default;
};

struct TranslationPrompt {
  std::string instructions, prompt;
};
TranslationPrompt translationPrompt(const TranslationTask& task);
// Of an answer that may still grow.
Translation parseModelTranslation(std::string_view answer, const TranslationTask& task);

// The bodies of the call "translate".
std::string translationRequest(const TranslationTask& task);
Translation parseServerTranslation(std::string_view body);
// Whether it is an answer to the call "languages".
bool isLanguageList(std::string_view body);

}  // namespace ambrel
