#pragma once
// Which tip is wanted at this moment. Items say that the pointer rests on them; whoever owns a window shows the tip.

#include <QPointer>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTimer>
#include <QtQml/qqmlregistration.h>

namespace ambrel {

// One for each engine. `text` is empty while no tip is to be shown; then `item` is null.
class Tips : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON
  Q_PROPERTY(QQuickItem* item READ item NOTIFY changed FINAL)
  Q_PROPERTY(QQuickWindow* window READ window NOTIFY changed FINAL)
  Q_PROPERTY(QString text READ text NOTIFY changed FINAL)
  Q_PROPERTY(QString keys READ keys NOTIFY changed FINAL)
  Q_PROPERTY(int delay READ delay WRITE setDelay NOTIFY delayChanged FINAL)

 public:
  explicit Tips(QObject* parent = nullptr);

  QQuickItem* item() const { return item_; }
  QQuickWindow* window() const { return item_ ? item_->window() : nullptr; }
  QString text() const { return text_; }
  // The keys that do the same, "F5"; may be empty.
  QString keys() const { return keys_; }
  int delay() const { return timer_.interval(); }
  void setDelay(int milliseconds);

  // The pointer came to rest on `item`: after the delay its tip is wanted.
  Q_INVOKABLE void enter(QQuickItem* item, const QString& text, const QString& keys = {});
  // The pointer left `item`, or it was pressed.
  Q_INVOKABLE void leave(QQuickItem* item);

 Q_SIGNALS:
  void changed();
  void delayChanged();

 private:
  void show();
  void leaveShown();

  QTimer timer_;
  QPointer<QQuickItem> next_, item_;
  QString nextText_, nextKeys_;
  QString text_, keys_;
};

}  // namespace ambrel
