#pragma once
// A screen reader's view of another program: which item has the keyboard, what it is called, where it is. It plays the
// accessibility bus and its registry on the session bus, so that the program reports to it (AT-SPI).

#include <QDBusVirtualObject>
#include <QRect>
#include <QSet>
#include <QString>
#include <optional>
#include <vector>

namespace ambrel {

class ScreenReader : public QDBusVirtualObject {
  Q_OBJECT

 public:
  // The numbers are those of AT-SPI.
  enum Role : unsigned {
    list = 31,
    listItem = 32,
    menuItem = 35,
    pushButton = 43,
    text = 61,
    toolTip = 64,
    notification = 101
  };

  struct Item {
    QString path;
    QString name;
    QString description;
    unsigned role = 0;
    QRect place;  // on the screen
  };
  struct Window {
    QString path;
    bool isVisible = false, isActive = false;
    friend bool operator==(const Window&, const Window&) = default;
  };

  // Before the program starts.
  ScreenReader();
  bool isReady() const { return isReady_; }

  // The program has said hello.
  bool hasProgram() const { return !program_.isEmpty(); }
  // How many presses and releases of keys have reached the program's windows.
  int presses() const { return presses_; }
  int releases() const { return releases_; }
  // What the program has said last has the keyboard; empty before it has said anything.
  const QString& focusPath() const { return focus_; }
  // How often it has said so.
  int focusChanges() const { return focusChanges_; }

  Item item(const QString& path) const;
  std::vector<Window> windows() const;
  std::vector<QString> children(const QString& path) const;
  // Whether the toolkit says here that an item which we have asked for is no longer there.
  bool isAnswer(const QByteArray& line) const;
  // Returns when the program has done what it had to do so far.
  void settle() const;

  QString introspect(const QString& path) const override;
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

 private Q_SLOTS:
  void focused(const QDBusMessage& message);

 private:
  QDBusMessage ask(const QString& path, const char* interface, const char* method, const QVariantList& arguments) const;
  QVariant property(const QString& path, const char* name) const;
  std::vector<unsigned> state(const QString& path) const;

  bool isReady_ = false;
  QString program_;
  QString focus_;
  mutable QSet<QString> asked_;  // paths
  int focusChanges_ = 0, presses_ = 0, releases_ = 0;
};

}  // namespace ambrel
