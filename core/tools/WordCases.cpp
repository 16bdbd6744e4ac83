// Upper and lower case, and the forms of names in code.

#include <algorithm>
#include <unicode/locid.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include "core/tools/Tools.h"

namespace ambrel::tools {
namespace {

using icu::UnicodeString;

bool isLetterOrDigit(UChar32 c) {
  return u_isalnum(c) || u_getIntPropertyValue(c, UCHAR_GENERAL_CATEGORY_MASK) & U_GC_M_MASK;
}

// The words of a name: they end at anything but letters and digits, before a capital ("userName"), and before the last
// capital of several when a small letter follows it ("HTTPServer").
std::vector<UnicodeString> wordsOf(const UnicodeString& line) {
  std::vector<UnicodeString> words;
  UnicodeString word;
  const auto end = [&] {
    if (!word.isEmpty()) words.push_back(word);
    word.remove();
  };
  UChar32 before = 0;
  for (std::int32_t i = 0; i < line.length();) {
    const UChar32 c = line.char32At(i);
    const std::int32_t next = line.moveIndex32(i, 1);
    if (!isLetterOrDigit(c)) {
      end();
    } else {
      const bool startsName = u_isUUppercase(c) && !u_isUUppercase(before);
      const bool endsCapitals =
          u_isUUppercase(c) && u_isUUppercase(before) && next < line.length() && u_isULowercase(line.char32At(next));
      if (startsName || endsCapitals) end();
      word.append(c);
    }
    before = c;
    i = next;
  }
  end();
  return words;
}

struct Form {
  std::string_view id;
  char separator;  // 0 for none
  enum { lower, upper, capital, camel } letters;
};
constexpr Form forms[]{{"camel", 0, Form::camel},
                       {"pascal", 0, Form::capital},
                       {"snake", '_', Form::lower},
                       {"kebab", '-', Form::lower},
                       {"constant", '_', Form::upper}};

// Names are the same everywhere: the letters are those of no language.
UnicodeString named(const UnicodeString& line, const Form& form) {
  const icu::Locale& root = icu::Locale::getRoot();
  UnicodeString out;
  for (UnicodeString& word : wordsOf(line)) {
    const bool isFirst = out.isEmpty();
    if (form.separator && !isFirst) out.append(static_cast<UChar32>(form.separator));
    if (form.letters == Form::upper)
      out.append(word.toUpper(root));
    else if (form.letters == Form::capital || (form.letters == Form::camel && !isFirst))
      out.append(word.toTitle(nullptr, root));
    else
      out.append(word.toLower(root));
  }
  return out;
}

// Each line is a name of its own.
UnicodeString namedLines(const UnicodeString& text, const Form& form) {
  UnicodeString out;
  for (std::int32_t from = 0; from <= text.length();) {
    std::int32_t end = text.indexOf(u'\n', from);
    if (end < 0) end = text.length();
    out.append(named(text.tempSubStringBetween(from, end), form));
    if (end < text.length()) out.append(u'\n');
    from = end + 1;
  }
  return out;
}

// The first letter of each line and behind each full stop in capitals. ICU's own sentences end at no stop that a small
// letter follows, which is the case that this corrects.
UnicodeString sentences(const UnicodeString& text, const icu::Locale& locale) {
  UnicodeString out;
  bool isStart = true, isStopped = false;
  for (std::int32_t i = 0; i < text.length(); i = text.moveIndex32(i, 1)) {
    const UChar32 c = text.char32At(i);
    if (isStart && u_isalnum(c)) {
      out.append(UnicodeString(c).toTitle(nullptr, locale));
    } else {
      out.append(c);
    }
    if (u_hasBinaryProperty(c, UCHAR_S_TERM))
      isStopped = true;
    else if (u_isalnum(c))
      isStart = isStopped = false;
    else if (c == u'\n' || (isStopped && u_isUWhiteSpace(c)))
      isStart = true;
  }
  return out;
}

}  // namespace

ToolOutcome wordCase(const ToolCall& call) {
  const icu::Locale locale(call.source.calendar.locale().c_str());
  UnicodeString text =
      UnicodeString::fromUTF8(icu::StringPiece(call.input.data(), static_cast<std::int32_t>(call.input.size())));
  const auto form =
      std::find_if(std::begin(forms), std::end(forms), [&](const Form& one) { return one.id == call.choice; });
  if (form != std::end(forms)) {
    text = namedLines(text, *form);
  } else if (call.choice == "lower") {
    text.toLower(locale);
  } else if (call.choice == "title") {
    text.toTitle(nullptr, locale);
  } else if (call.choice == "sentence") {
    text = sentences(text.toLower(locale), locale);
  } else {
    text.toUpper(locale);
  }
  std::string out;
  text.toUTF8String(out);
  return {std::move(out), {}};
}

ToolGlance wordCaseGlance(const ToolCall& call, const ToolOutcome&) {
  const ToolChoice* choice = textTool(DockWidget::caseConverter)->choice(call.choice);
  return {"Aa", std::string(choice->title), {}};
}

}  // namespace ambrel::tools
