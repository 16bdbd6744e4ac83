#include "app/panels/SettingsSearch.h"

#include <QLocale>
#include <algorithm>
#include <optional>
#include <vector>

#include "core/base/SearchFolding.h"

namespace ambrel {
namespace {

struct Search {
  SearchFolding folding = SearchFolding::forLocale(QLocale().name().toStdString());
  std::vector<std::string> words = {};

  bool finds(const QObject& row) const {
    std::string text;
    for (const char* property : {"title", "detail", "searchWords"})
      text += folding.folded(row.property(property).toString().toStdString()) + '\n';
    return std::ranges::all_of(words, [&](const std::string& word) { return folding.contains(text, word); });
  }

  // Absent where there are no rows at all.
  std::optional<bool> narrow(QQuickItem& item) const {
    const bool canBeLeftOut = item.property("isLeftOut").isValid();
    if (canBeLeftOut && item.property("searchWords").isValid()) {
      const bool isFound = finds(item);
      item.setProperty("isLeftOut", !isFound);
      return isFound;
    }
    std::optional<bool> isFound;
    const auto children = item.childItems();
    for (QQuickItem* child : children)
      if (const auto below = narrow(*child)) isFound = *below || isFound.value_or(false);
    if (canBeLeftOut && isFound) item.setProperty("isLeftOut", !*isFound);
    return isFound;
  }
};

}  // namespace

bool SettingsSearch::narrow(QQuickItem* page, const QString& query) const {
  if (!page) return false;
  Search search;
  const QStringList words = query.split(u' ', Qt::SkipEmptyParts);
  for (const QString& word : words) search.words.push_back(search.folding.folded(word.toStdString()));
  return search.narrow(*page).value_or(false);
}

}  // namespace ambrel
