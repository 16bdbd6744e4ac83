#pragma once
// One symbol by its name, as a glyph of the icon font or as a drawing of ours.

#include <QColor>

#include "app/kit/StyledItem.h"

namespace ambrel {

class Theme;

// As large as its `size`, which grows with the text, in one colour; with `isPicture` a weather symbol shows its own
// colours instead. A name that is unknown shows a question mark, so that it is noticed and the layout stays.
class Symbol : public ambrel::StyledItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QString name MEMBER name_ NOTIFY styleChanged FINAL)
  Q_PROPERTY(QColor color MEMBER color_ NOTIFY styleChanged FINAL)
  Q_PROPERTY(qreal size MEMBER size_ NOTIFY styleChanged FINAL)
  Q_PROPERTY(bool isPicture MEMBER isPicture_ NOTIFY styleChanged FINAL)
  Q_PROPERTY(QColor sunColor MEMBER sunColor_ NOTIFY styleChanged FINAL)
  Q_PROPERTY(QColor cloudColor MEMBER cloudColor_ NOTIFY styleChanged FINAL)
  Q_PROPERTY(QColor waterColor MEMBER waterColor_ NOTIFY styleChanged FINAL)

 public:
  explicit Symbol(QQuickItem* parent = nullptr);

  void paint(QPainter* painter) override;

 protected:
  void componentComplete() override;

 private:
  void restyle() override;
  qreal shownSize() const;

  QString name_;
  QColor color_;
  QColor sunColor_, cloudColor_, waterColor_;
  qreal size_ = 16;
  const Theme* theme_ = nullptr;  // until it is complete there is none
  bool isPicture_ = false;
};

}  // namespace ambrel
