#include "core/base/JSON.h"
#include "core/review.h"

namespace ambrel {
namespace {

double number(const JSON& json, std::string_view key) {
  const auto value = numberField(json, key);
  if (!value) throw DecodingError("a pin or a highlight has no number \"" + std::string(key) + "\"");
  return *value;
}

const JSON& array(const JSON& json, const char* key) {
  static const JSON none = JSON::array();
  const auto at = json.find(key);
  if (at == json.end()) return none;
  if (!at->is_array()) throw DecodingError('"' + std::string(key) + "\" is no array");
  return *at;
}

}  // namespace

TitledReview decodedReview(std::string_view text) {
  const auto json = parseJSON(text);
  if (!json || !json->is_object()) throw DecodingError("no JSON object");
  TitledReview result{.title = stringField(*json, "title").value_or(""), .review = {}};
  for (const JSON& page : array(*json, "pages")) {
    if (!page.is_object()) throw DecodingError("a page is no object");
    const UUID id = UUID::random();
    result.review.addPage(id);
    for (const JSON& pin : array(page, "pins")) {
      const auto added = result.review.addPin(id, {number(pin, "x"), number(pin, "y")});
      result.review.setText(id, *added, stringField(pin, "text").value_or(""));
    }
    for (const JSON& box : array(page, "highlights"))
      result.review.addHighlight(id, {number(box, "x"), number(box, "y"), number(box, "width"), number(box, "height")});
  }
  return result;
}

}  // namespace ambrel
