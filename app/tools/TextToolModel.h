#pragma once
// One text tool: its input, its options and its result.

#include <QStringList>
#include <QUrl>
#include <memory>

#include "app/base/SeenModel.h"
#include "app/tools/ToolFace.h"
#include "app/tools/ToolSeams.h"

namespace ambrel {

// It works on the clipboard's text while its tile can be seen. While its panel is open, it keeps the text that the
// panel began with, or what was typed or dropped; at other times it rests.
class TextToolModel : public ambrel::SeenModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::ToolFace face READ face NOTIFY faceChanged FINAL)
  Q_PROPERTY(QString widget READ widgetId CONSTANT FINAL)
  Q_PROPERTY(QString title READ title CONSTANT FINAL)
  Q_PROPERTY(QString symbol READ symbol CONSTANT FINAL)
  Q_PROPERTY(bool takesInput READ takesInput CONSTANT FINAL)
  Q_PROPERTY(QStringList choices READ choices CONSTANT FINAL)  // empty for a tool that does one thing
  Q_PROPERTY(int choice READ choice WRITE setChoice NOTIFY choiceChanged FINAL)

 public:
  using Text = std::shared_ptr<const std::string>;

  // Both outlive it.
  TextToolModel(const TextTool& tool, const ToolSeams& seams, QObject* parent = nullptr);

  const ToolFace& face() const { return result_.face; }
  QString title() const;
  QString symbol() const;
  bool takesInput() const { return tool_.input != ToolInput::none; }
  QStringList choices() const;
  int choice() const { return choice_; }
  void setChoice(int choice);
  QString widgetId() const;
  void setClipboard(Text text);
  // The stored options may have changed.
  void reload();

  // Of the panel, which the area begins.
  Q_INVOKABLE void setInput(const QString& text);
  Q_INVOKABLE void useClipboard();
  Q_INVOKABLE void clear();
  // What was dropped: the first local file's content, else the text.
  Q_INVOKABLE void take(const QString& text, const QList<QUrl>& urls);
  // Makes another random text.
  Q_INVOKABLE void makeNew();

  // Puts the result on the clipboard; once it is there, when it is being worked out.
  Q_INVOKABLE void copy();
  // What a click on the tile does; false where there is nothing to work on.
  Q_INVOKABLE bool act();
  // The picture, into the folder of the user's pictures.
  Q_INVOKABLE void save();

 Q_SIGNALS:
  void faceChanged();
  void choiceChanged();

 protected:
  void closed() override;
  void neededChanged() override;

 private:
  std::string choiceKey() const;
  void setText(Text text);
  // Works, or notes that it has to, when it is needed.
  void renew();
  void publish(ToolResult result, int generation);
  void writeResult();
  void say(const QString& title, const QString& detail) const;

  const TextTool& tool_;
  const ToolSeams& seams_;
  Text clipboard_, input_;
  ToolResult result_;
  int choice_ = 0;
  int generation_ = 0;  // of what is being worked out
  bool isStale_ = true;
  bool copiesWhenDone_ = false;
};

}  // namespace ambrel
