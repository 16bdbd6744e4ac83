#pragma once
// The settings row that connects an agent's tool: our hooks in its settings.

#include "app/base/ConnectionModel.h"
#include "core/agents/connect/HookConnection.h"

namespace ambrel {

class AgentHooksModel : public ConnectionModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")

 public:
  AgentHooksModel(AgentKind kind, const HookConnection::Places& places, QObject* parent = nullptr);

  QString title() const override;
  QString text() const override;
  bool mayBeMade() const override { return hooks_.mayHaveOurs(); }

 protected:
  bool isMade() const override { return hooks_.isConnected(); }
  void make() override;
  void unmake() override { hooks_.disconnect(); }
  QString cannotChange() const override;

 private:
  AgentKind kind_;
  bool hasTool_;
  HookConnection hooks_;
};

}  // namespace ambrel
