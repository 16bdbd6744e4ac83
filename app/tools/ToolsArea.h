#pragma once
// The tools' part of the program: their models, and the clipboard's text for the text tools that can be seen.

#include <map>
#include <memory>

#include "app/base/Area.h"
#include "app/tools/CalculatorModel.h"
#include "app/tools/ColorPickerModel.h"
#include "app/tools/EmojiModel.h"
#include "app/tools/TextToolModel.h"
#include "app/tools/TranslateModel.h"
#include "app/tools/UnitConverterModel.h"

namespace ambrel {

class ToolsArea : public Area {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::CalculatorModel* calculator READ calculator CONSTANT FINAL)
  Q_PROPERTY(ambrel::UnitConverterModel* units READ units CONSTANT FINAL)
  Q_PROPERTY(ambrel::EmojiModel* emoji READ emoji CONSTANT FINAL)
  Q_PROPERTY(ambrel::ColorPickerModel* colorPicker READ colorPicker CONSTANT FINAL)
  Q_PROPERTY(ambrel::TranslateModel* translator READ translator CONSTANT FINAL)

 public:
  explicit ToolsArea(ToolSeams seams, QObject* parent = nullptr);

  CalculatorModel* calculator() { return &calculator_; }
  UnitConverterModel* units() { return &units_; }
  EmojiModel* emoji() { return &emoji_; }
  ColorPickerModel* colorPicker() { return &colorPicker_; }
  TranslateModel* translator() { return &translator_; }
  // Null if the widget is not a text tool.
  Q_INVOKABLE ambrel::TextToolModel* tool(const QString& widget) const;
  // For a panel that opens while no tool is seen.
  Q_INVOKABLE void begin(ambrel::TextToolModel* tool);

  // The text on the clipboard may have changed.
  void clipboardChanged();
  void widgetsChanged(const std::set<DockWidget>& onBar, bool areSeen, Instant now) override;
  void defaultsChanged(const std::set<std::string>& keys) override;

 private:
  // Once for all tools, and only for one that is needed.
  void readClipboard();

  ToolSeams seams_;
  std::map<DockWidget, std::unique_ptr<TextToolModel>> tools_;
  CalculatorModel calculator_{seams_};
  UnitConverterModel units_{seams_};
  EmojiModel emoji_{seams_};
  ColorPickerModel colorPicker_{seams_};
  TranslateModel translator_{seams_};
  bool isClipboardRead_ = false;
  int generation_ = 0;
};

}  // namespace ambrel
