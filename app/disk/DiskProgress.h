#pragma once
// How far a scan has come, in words.

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace ambrel {

class DiskProgress : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(QString title READ title NOTIFY changed)
  Q_PROPERTY(QString detail READ detail NOTIFY changed)
  Q_PROPERTY(QString figure READ figure NOTIFY changed)
  // 0 to 100.
  Q_PROPERTY(double percent READ percent NOTIFY changed)

 public:
  using QObject::QObject;

  QString title() const { return title_; }
  QString detail() const { return detail_; }
  QString figure() const { return figure_; }
  double percent() const { return percent_; }
  void set(const QString& title, const QString& detail, const QString& figure, double percent) {
    if (title == title_ && detail == detail_ && figure == figure_ && percent == percent_) return;
    title_ = title;
    detail_ = detail;
    figure_ = figure;
    percent_ = percent;
    Q_EMIT changed();
  }

 Q_SIGNALS:
  void changed();

 private:
  QString title_, detail_, figure_;
  double percent_ = 0;
};

}  // namespace ambrel
