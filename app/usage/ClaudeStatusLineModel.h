#pragma once
// The settings row that connects Claude Code's own percentages.

#include <QFileSystemWatcher>
#include <QObject>
#include <QtQml/qqmlregistration.h>

#include "core/usage/ClaudeStatusLine.h"

namespace ambrel {

// Works on the main thread, at the user's request: it changes a few small files.
class ClaudeStatusLineModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(bool isConnected READ isConnected NOTIFY changed FINAL)
  // What the row says about the present state.
  Q_PROPERTY(QString text READ text NOTIFY changed FINAL)
  // Why the last change was not made; empty when it was.
  Q_PROPERTY(QString problem READ problem NOTIFY changed FINAL)

 public:
  explicit ClaudeStatusLineModel(ClaudeStatusLine::Files files, QObject* parent = nullptr);

  bool isConnected() const { return isConnected_; }
  QString text() const;
  QString problem() const { return problem_; }

  // The settings may have been changed by hand. They are also looked at whenever their file changes.
  Q_INVOKABLE void look();
  // Not named connect and disconnect, which QObject has already.
  Q_INVOKABLE void install();
  Q_INVOKABLE void remove();

 Q_SIGNALS:
  void changed();
  // The connection was made or undone: there are other percentages to show.
  void connectionChanged();

 private:
  void perform(void (*action)(const ClaudeStatusLine::Files&));
  void update(bool isConnected, const QString& problem);
  // The file, and its folder for as long as it can be replaced or made; the home while there is no folder.
  void watch();

  ClaudeStatusLine::Files files_;
  bool isConnected_;
  QString problem_;
  QFileSystemWatcher watcher_;
};

}  // namespace ambrel
