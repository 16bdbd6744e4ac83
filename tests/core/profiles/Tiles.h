#pragma once
// Tiles of a profile by the names of their widgets.

#include <string>
#include <vector>

#include "core/profiles.h"

namespace ambrel {

inline std::vector<DockItem> holding(const std::vector<std::string>& widgets) {
  std::vector<DockItem> items;
  for (const std::string& widget : widgets) items.push_back(DockItem::holding(widget));
  return items;
}

// "-" for an item that holds none.
inline std::vector<std::string> widgetsOf(const Profile& profile) {
  std::vector<std::string> widgets;
  for (const DockItem& item : profile.items) widgets.push_back(item.widget.value_or("-"));
  return widgets;
}

}  // namespace ambrel
