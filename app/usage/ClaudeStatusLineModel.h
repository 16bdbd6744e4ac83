#pragma once
// The settings row that connects Claude Code's own percentages.

#include "app/base/ConnectionModel.h"
#include "core/usage/ClaudeStatusLine.h"

namespace ambrel {

class ClaudeStatusLineModel : public ConnectionModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")

 public:
  explicit ClaudeStatusLineModel(ClaudeStatusLine::Files files, QObject* parent = nullptr);

  QString title() const override { return tr("Claude's own percentages"); }
  QString text() const override;
  bool mayBeMade() const override { return ClaudeStatusLine::mayHaveOurs(files_); }

 protected:
  bool isMade() const override { return ClaudeStatusLine::isConnected(files_); }
  void make() override { ClaudeStatusLine::install(files_); }
  void unmake() override { ClaudeStatusLine::remove(files_); }
  QString cannotChange() const override { return QString::fromUtf8(ClaudeStatusLine::cannotChange); }

 private:
  ClaudeStatusLine::Files files_;
};

}  // namespace ambrel
