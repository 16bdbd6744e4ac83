#pragma once
// The text tools' part of the program: their models, and the clipboard's text for those that can be seen.

#include <map>
#include <memory>

#include "app/base/Area.h"
#include "app/tools/TextToolModel.h"

namespace ambrel {

class ToolsArea : public Area {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")

 public:
  explicit ToolsArea(ToolSeams seams, QObject* parent = nullptr);

  // Null for what is no text tool.
  Q_INVOKABLE ambrel::TextToolModel* tool(const QString& widget) const;
  // For a panel that opens while no tool is seen.
  Q_INVOKABLE void begin(ambrel::TextToolModel* tool);

  // The clipboard has another text, perhaps.
  void clipboardChanged();
  void widgetsChanged(const std::set<DockWidget>& onBar, bool areSeen, Instant now) override;
  void defaultsChanged(const std::set<std::string>& keys) override;

 private:
  // Once for all tools, and only for one that is needed.
  void readClipboard();

  ToolSeams seams_;
  std::map<DockWidget, std::unique_ptr<TextToolModel>> tools_;
  bool isClipboardRead_ = false;
  int generation_ = 0;
};

}  // namespace ambrel
