#pragma once
// The place of one tile: creates the tile by its widget's id and passes its state on.

#include <QQuickItem>
#include <memory>

#include "app/context/WidgetContext.h"

namespace ambrel {

// The tile gets its models from its area and from the context, and from the catalogue its title, short title,
// description and symbol. A widget without a file, or whose area is not there, has no tile.
class TileHost : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(ambrel::WidgetContext* context MEMBER context_ NOTIFY sourceChanged REQUIRED FINAL)
  Q_PROPERTY(QString widget MEMBER widget_ NOTIFY sourceChanged REQUIRED FINAL)
  // From the narrowest width to the widest, 0 to 3.
  Q_PROPERTY(int span MEMBER span_ NOTIFY stateChanged FINAL)
  // Whether somebody can see the tile.
  Q_PROPERTY(bool live MEMBER live_ NOTIFY stateChanged FINAL)
  // Shows what the area has as an example, instead of what is the case.
  Q_PROPERTY(bool isSample MEMBER isSample_ NOTIFY sourceChanged FINAL)
  Q_PROPERTY(QQuickItem* tile READ tile NOTIFY tileChanged FINAL)

 public:
  explicit TileHost(QQuickItem* parent = nullptr);
  ~TileHost() override;

  QQuickItem* tile() const { return tile_.get(); }

 Q_SIGNALS:
  void sourceChanged();
  void stateChanged();
  void tileChanged();

 protected:
  void componentComplete() override;
  void geometryChange(const QRectF& now, const QRectF& before) override;

 private:
  void make();
  void passOn();

  WidgetContext* context_ = nullptr;
  QString widget_;
  int span_ = 1;
  bool live_ = false, isSample_ = false;
  std::unique_ptr<QQuickItem> tile_;
};

}  // namespace ambrel
