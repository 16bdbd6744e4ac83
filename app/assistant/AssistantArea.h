#pragma once
// Ask Buddy: the conversation, the model behind it and the ways that lead to it.

#include "app/assistant/Assistant.h"
#include "app/assistant/AssistantActions.h"
#include "app/assistant/ModelServer.h"
#include "app/base/Area.h"

namespace ambrel {

class AssistantArea : public Area {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::Assistant* assistant READ assistant CONSTANT FINAL)
  Q_PROPERTY(ambrel::Buddy* buddy READ buddy CONSTANT FINAL)

 public:
  struct Seams {
    UserDefaults& defaults;
    ChatServerModel& model;
    Buddy& buddy;
    AssistantActions::Seams actions;
  };
  // All that the seams refer to outlives it.
  explicit AssistantArea(Seams seams, QObject* parent = nullptr);

  Assistant* assistant() { return &assistant_; }
  Buddy* buddy() { return &buddy_; }
  ModelServer* server() { return &server_; }

  void defaultsChanged(const std::set<std::string>& keys) override;
  bool carryOut(const Wish& wish) override;
  std::vector<AreaKey> keys() override;

 Q_SIGNALS:
  // The panel is to open; with a text, it is asked.
  void asked(const QString& text);
  // The panel is to open or close.
  void panelAsked();

 private:
  Buddy& buddy_;
  AssistantActions actions_;
  Assistant assistant_;
  ModelServer server_;
};

}  // namespace ambrel
