#pragma once
// A connection to another program that is made in its settings, as a row of ours shows it.

#include <QObject>
#include <QtQml/qqmlregistration.h>
#include <memory>

#include "app/base/FollowedFile.h"

namespace ambrel {

// Works on the main thread, at the user's request: it changes a few small files.
class ConnectionModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("what the connections share")
  Q_PROPERTY(QString title READ title CONSTANT FINAL)
  Q_PROPERTY(bool isConnected READ isConnected NOTIFY changed FINAL)
  // What the row says about the present state.
  Q_PROPERTY(QString text READ text NOTIFY changed FINAL)
  // Why the last change was not made; empty when it was.
  Q_PROPERTY(QString problem READ problem NOTIFY changed FINAL)

 public:
  using QObject::QObject;

  virtual QString title() const = 0;
  bool isConnected() const { return isConnected_; }
  virtual QString text() const = 0;
  QString problem() const { return problem_; }

  // Also true of a connection that is there in part, or that damaged settings may hold.
  virtual bool mayBeMade() const = 0;
  // The settings may have been changed by hand. They are also looked at whenever their file changes.
  Q_INVOKABLE void look();
  // Not named connect and disconnect, which QObject has already.
  Q_INVOKABLE void install();
  Q_INVOKABLE void remove();

 Q_SIGNALS:
  void changed();
  // The connection was made or undone.
  void connectionChanged();

 protected:
  // Called by the constructor of the connection.
  void follow(const std::filesystem::path& settings);

  virtual bool isMade() const = 0;
  // Both throw an error that says why the change cannot be made.
  virtual void make() = 0;
  virtual void unmake() = 0;
  // What the user reads then.
  virtual QString cannotChange() const = 0;

 private:
  void perform(void (ConnectionModel::*action)());
  void update(bool isConnected, const QString& problem);

  bool isConnected_ = false;
  QString problem_;
  std::unique_ptr<FollowedFile> settings_;
};

}  // namespace ambrel
