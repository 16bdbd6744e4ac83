#pragma once
// What the developers' tiles and panels show, made from what the tools say.

#include <QString>
#include <QtQml/qqmlregistration.h>
#include <vector>

#include "app/base/Face.h"
#include "platform/DeveloperTools.h"

namespace ambrel {

// A server, a container, a package or a simulator.
struct ToolRow {
  Q_GADGET
  QML_VALUE_TYPE(toolRow)
  Q_PROPERTY(QString rowId MEMBER id FINAL)

 public:
  QString id{};
  FACE_FIELDS(QString, title, detail, symbol);  // "web", "nginx:1.25, up 2 hours", "shippingbox"
  FACE_FIELDS(QString, verb);                   // what its button does: "Stop"; empty without one
  FACE_FIELDS(QString, address);                // what a browser opens
  FACE_FIELDS(bool, isRunning, isFaulty, isBusy);

  bool operator==(const ToolRow&) const = default;
};

struct ToolListFace {
  Q_GADGET
  QML_VALUE_TYPE(toolListFace)
 public:
  FACE_FIELDS(QString, value, subLine);     // "3 running", "5 containers"
  FACE_FIELDS(QString, problem, sentence);  // why there is nothing, in a few words; what can be done about it
  FACE_FIELDS(int, count);                  // what the value counts
  FACE_FIELDS(bool, isFaulty, isWorking);

  bool operator==(const ToolListFace&) const = default;
};

struct ToolContent {
  ToolListFace face;
  std::vector<ToolRow> rows;
};

// home: whose folders are written as "~/...".
ToolContent serversContent(const std::vector<LocalServer>& servers, const QString& home);
// The id that `serversContent` gives the row of a server.
QString rowIdOf(const LocalServer& server);
ToolContent containersContent(const ToolAnswer<ContainerReading>& answer);
ToolContent packagesContent(const std::vector<std::string>& outdated);
ToolContent packagesContent(const ToolFailure& failure);
ToolContent simulatorsContent(const ToolAnswer<std::vector<Simulator>>& answer);
QString rowIdOf(const Simulator& simulator);
// Why an engine did not do what it was asked for; empty when it did.
QString complaintOf(const std::optional<ToolFailure>& failure);

struct GitFact {
  Q_GADGET
  QML_VALUE_TYPE(gitFact)
 public:
  FACE_FIELDS(QString, title, figure);  // "Staged", "2"

  bool operator==(const GitFact&) const = default;
};

struct GitFace {
  Q_GADGET
  QML_VALUE_TYPE(gitFace)
 public:
  FACE_FIELDS(QString, name, path);       // of the repository's folder; empty while none is chosen
  FACE_FIELDS(QString, branch, summary);  // "main"; "↑2 ↓1 · 3 changed"
  FACE_FIELDS(QString, problem);          // why its state is not known
  FACE_FIELDS(bool, isChosen, needsUser);

  bool operator==(const GitFace&) const = default;
};

// folder: the one that was chosen, perhaps within the repository.
GitFace gitFace(const QString& folder, const ToolAnswer<GitReading>& answer);
std::vector<GitFact> gitFacts(const GitState& state);

}  // namespace ambrel
