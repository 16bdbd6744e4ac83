#pragma once
// A list of what one tool has: servers, containers, packages or simulators. Read while somebody can see its tile.

#include <set>

#include "app/base/Area.h"
#include "app/base/GadgetListModel.h"
#include "app/base/PacedWork.h"
#include "app/developer/DeveloperFaces.h"

namespace ambrel {

class DeveloperList : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::RowList* rows READ rows CONSTANT FINAL)
  Q_PROPERTY(ambrel::ToolListFace face READ face NOTIFY faceChanged FINAL)
  // The last lines that a row's program wrote, and its name; empty while none is shown.
  Q_PROPERTY(QString log MEMBER log_ NOTIFY logChanged FINAL)
  Q_PROPERTY(QString logTitle MEMBER logTitle_ NOTIFY logChanged FINAL)

 public:
  static constexpr std::chrono::milliseconds pause{1000};

  // The first three run off the main thread, one at a time.
  struct Source {
    std::function<ToolContent()> read;
    // Starts or stops what a row stands for. Says why not; empty when it was done.
    std::function<QString(const QString& row, bool starts)> act = {};
    std::function<QString(const QString& row)> log = {};
    int interval = 3;  // of ticks
    // Whether it is time to read, and what changes the content before it is shown; both on the main thread.
    std::function<bool()> isDue = {};
    std::function<void(ToolContent&)> take = {};
  };
  // The shell outlives it.
  DeveloperList(Source source, Background background, Shell& shell, QObject* parent = nullptr);

  RowList* rows() { return &rows_; }
  const ToolListFace& face() const { return content_.face; }
  const ToolContent& content() const { return content_; }
  void setSeen(bool isSeen);
  // Every two seconds.
  void tick();
  void show(ToolContent content);

  // Reads it, if somebody can see it and it is time.
  Q_INVOKABLE void look() { work_.ask(); }
  // Reads it in any case.
  Q_INVOKABLE void lookAgain();
  Q_INVOKABLE void act(const QString& row, bool starts);
  Q_INVOKABLE void showLog(const QString& row);
  Q_INVOKABLE void readLogAgain() { showLog(logRow_); }
  Q_INVOKABLE void closeLog();

 Q_SIGNALS:
  void faceChanged();
  void logChanged();

 private:
  PacedWork::Job reading();
  void publish();

  Source source_;
  Background background_;
  Shell& shell_;
  PacedWork work_;
  ToolContent content_;
  GadgetListModel<ToolRow> rows_;
  std::set<QString> busy_;
  QString log_, logTitle_, logRow_;
  int ticks_ = 0;
  bool isSeen_ = false, isAsked_ = false;
};

}  // namespace ambrel
