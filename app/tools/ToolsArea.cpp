#include "app/tools/ToolsArea.h"

#include <QPointer>
#include <algorithm>

#include "app/base/QmlObjects.h"
#include "core/settings.h"

namespace ambrel {

ToolsArea::ToolsArea(ToolSeams seams, QObject* parent)
    : Area(QStringLiteral("Tools"), parent), seams_(std::move(seams)) {
  keep({this, &calculator_, &units_, &emoji_, &colorPicker_, &translator_});
  for (const TextTool& tool : textTools()) {
    auto& model = tools_[tool.widget] = std::make_unique<TextToolModel>(tool, seams_);
    keep({model.get()});
  }
}

TextToolModel* ToolsArea::tool(const QString& widget) const {
  const auto id = fromName<DockWidget>(widget.toStdString());
  const auto found = id ? tools_.find(*id) : tools_.end();
  return found == tools_.end() ? nullptr : found->second.get();
}

void ToolsArea::begin(TextToolModel* tool) {
  tool->begin();
  readClipboard();
}

void ToolsArea::clipboardChanged() {
  isClipboardRead_ = false;
  ++generation_;
  readClipboard();
}

void ToolsArea::readClipboard() {
  const bool isNeeded = std::ranges::any_of(
      tools_, [](const auto& entry) { return entry.second->takesInput() && entry.second->isNeeded(); });
  if (isClipboardRead_ || !isNeeded) return;
  isClipboardRead_ = true;
  seams_.readClipboard([self = QPointer(this), generation = generation_](std::string text) {
    if (!self || generation != self->generation_) return;
    const auto shared = std::make_shared<const std::string>(std::move(text));
    for (const auto& [widget, model] : self->tools_)
      if (model->takesInput()) model->setClipboard(shared);
  });
}

void ToolsArea::widgetsChanged(const std::set<DockWidget>& onBar, bool areSeen, Instant /*now*/) {
  for (const auto& [widget, model] : tools_) model->setIsSeen(areSeen && onBar.contains(widget));
  calculator_.setIsSeen(areSeen && onBar.contains(DockWidget::calculator));
  units_.setIsSeen(areSeen && onBar.contains(DockWidget::unitConverter));
  readClipboard();
}

void ToolsArea::defaultsChanged(const std::set<std::string>& keys) {
  for (const auto& [widget, model] : tools_) {
    const bool isLength = widget == DockWidget::password && keys.contains(setting::passwordLength.key);
    const bool isIndex = widget == DockWidget::loremIpsum && keys.contains("loremIndex");
    if (isLength || isIndex || keys.contains(std::string(nameOf(widget)) + ".mode")) model->reload();
  }
  const auto touches = [&](std::initializer_list<const char*> ours) {
    return std::ranges::any_of(ours, [&](const char* key) { return keys.contains(key); });
  };
  if (touches({"calculatorExpression"})) calculator_.reload();
  if (touches({"unitValue", "unitCategory", "unitFrom", "unitTo"})) units_.reload();
  if (touches({"emojiRecent", "emoji.tone"})) emoji_.reload();
  if (touches({"translate.source", "translate.target", setting::translateServerURL.key,
               setting::translateServerAllowedURL.key}))
    translator_.reload();
}

}  // namespace ambrel
