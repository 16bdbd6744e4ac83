#pragma once
// One symbol by its name, as a glyph of the icon font or as a drawing of ours.

#include <QQuickPaintedItem>

namespace ambrel {

// As large as its `size`, in one colour; with `isPicture` a weather symbol shows its own colours instead. A name
// that nobody knows shows a question mark, so that it is noticed and nothing jumps.
class Symbol : public QQuickPaintedItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged FINAL)
  Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged FINAL)
  Q_PROPERTY(qreal size READ size WRITE setSize NOTIFY sizeChanged FINAL)
  Q_PROPERTY(bool isPicture READ isPicture WRITE setIsPicture NOTIFY isPictureChanged FINAL)
  Q_PROPERTY(QColor sunColor MEMBER sunColor_ WRITE setSunColor NOTIFY picturedChanged FINAL)
  Q_PROPERTY(QColor cloudColor MEMBER cloudColor_ WRITE setCloudColor NOTIFY picturedChanged FINAL)
  Q_PROPERTY(QColor waterColor MEMBER waterColor_ WRITE setWaterColor NOTIFY picturedChanged FINAL)

 public:
  explicit Symbol(QQuickItem* parent = nullptr);

  QString name() const { return name_; }
  void setName(const QString& name);
  QColor color() const { return color_; }
  void setColor(const QColor& color);
  qreal size() const { return size_; }
  void setSize(qreal size);
  bool isPicture() const { return isPicture_; }
  void setIsPicture(bool isPicture);
  void setSunColor(const QColor& color);
  void setCloudColor(const QColor& color);
  void setWaterColor(const QColor& color);

  void paint(QPainter* painter) override;

 Q_SIGNALS:
  void nameChanged();
  void colorChanged();
  void sizeChanged();
  void isPictureChanged();
  void picturedChanged();

 private:
  void setPictured(QColor& field, const QColor& color);

  QString name_;
  QColor color_;
  QColor sunColor_, cloudColor_, waterColor_;
  qreal size_ = 0;
  bool isPicture_ = false;
};

}  // namespace ambrel
