#include "app/developer/DeveloperFaces.h"

#include <QCoreApplication>
#include <QFile>
#include <QStringList>
#include <algorithm>

#include "app/base/StoredValue.h"

namespace ambrel {
namespace {

struct Words {
  Q_DECLARE_TR_FUNCTIONS(Developer)
};

QString tr(const char* text) { return Words::tr(text); }

QString counted(std::size_t count, const char* one, const char* many) {
  return count == 1 ? tr(one) : tr(many).arg(count);
}

QString decoded(const std::string& path) { return QFile::decodeName(QByteArray::fromStdString(path)); }

ToolContent problem(const QString& what, const QString& sentence) {
  ToolContent content;
  content.face.problem = what;
  content.face.sentence = sentence;
  return content;
}

QString homely(const QString& path, const QString& home) {
  if (home.isEmpty() || home == QLatin1String("/")) return path;
  return path == home ? QStringLiteral("~") : path.startsWith(home + u'/') ? u'~' + path.mid(home.size()) : path;
}

QString operationText(const GitState& state) {
  const QString steps = state.steps > 0 ? tr(" %1 of %2").arg(state.step).arg(state.steps) : QString();
  switch (state.operation) {
    case GitState::Operation::none:
      return {};
    case GitState::Operation::merge:
      return tr("Merging");
    case GitState::Operation::revert:
      return tr("Reverting");
    case GitState::Operation::cherryPick:
      return tr("Cherry-picking");
    case GitState::Operation::bisect:
      return tr("Bisecting");
    case GitState::Operation::rebase:
      return tr("Rebasing") + steps;
    case GitState::Operation::applyMail:
      return tr("Applying patches") + steps;
  }
  return {};
}

QString distance(const GitState::Upstream& upstream) {
  QStringList parts;
  if (upstream.ahead > 0) parts << QStringLiteral("↑%1").arg(upstream.ahead);
  if (upstream.behind > 0) parts << QStringLiteral("↓%1").arg(upstream.behind);
  return parts.join(u' ');
}

QString summaryOf(const GitState& state) {
  QStringList parts{operationText(state)};
  if (state.changes && state.changes->conflicts > 0)
    parts << counted(state.changes->conflicts, "1 conflict", "%1 conflicts");
  if (state.upstream) parts << distance(*state.upstream);
  if (state.isBare)
    parts << tr("Bare repository");
  else if (!state.changes)
    parts << tr("Too large to count");
  else if (const auto& c = *state.changes; c.staged + c.changed + c.untracked > 0)
    parts << tr("%1 changed").arg(c.staged + c.changed + c.untracked);
  else if (state.commit.empty())
    parts << tr("No commits yet");
  else if (c.conflicts == 0)
    parts << tr("Clean");
  parts.removeAll(QString());
  return parts.join(QStringLiteral(" · "));
}

}  // namespace

QString rowIdOf(const LocalServer& server) {
  return QStringLiteral("%1-%2-%3").arg(server.pid).arg(server.port).arg(server.user);
}

ToolContent serversContent(const std::vector<LocalServer>& servers, const QString& home) {
  ToolContent content;
  QStringList ports;
  for (const LocalServer& server : servers) {
    ToolRow row;
    row.id = rowIdOf(server);
    row.address = toQString(webAddress(server));
    row.title = row.address.section(QStringLiteral("//"), 1);
    row.symbol = QStringLiteral("globe");
    const QString name = toQString(server.name), folder = homely(decoded(server.folder), home);
    row.detail = server.pid == 0                                        ? tr("Of another user or the system")
                 : folder.isEmpty() || folder == u'/' || folder == u'~' ? name
                                                                        : tr("%1 in %2").arg(name, folder);
    if (server.pid > 0) {
      row.verb = tr("Stop");
      row.isRunning = true;
      const QString port = QString::number(server.port);
      if (!ports.contains(port)) ports << port;
    }
    content.rows.push_back(std::move(row));
  }
  content.face.count = static_cast<int>(ports.size());
  content.face.value = ports.isEmpty() ? tr("None") : ports.join(QStringLiteral(" · "));
  content.face.subLine = counted(static_cast<std::size_t>(ports.size()), "1 server", "%1 servers");
  return content;
}

ToolContent containersContent(const ToolAnswer<ContainerReading>& answer) {
  if (const auto* failure = std::get_if<ToolFailure>(&answer)) switch (failure->reason) {
      case ToolFailure::Reason::missing:
        return problem(tr("No engine is running"), tr("Start Docker or Podman's service to see its containers here."));
      case ToolFailure::Reason::noAccess:
        return problem(tr("No permission"), tr("Only members of the group “docker” may use Docker's engine."));
      case ToolFailure::Reason::elsewhere:
        return problem(tr("On another computer"), tr("DOCKER_HOST names an engine that is not on this computer."));
      case ToolFailure::Reason::failed:
        return problem(tr("No answer"),
                       failure->words.empty() ? tr("The engine did not answer in time.") : toQString(failure->words));
    }
  ToolContent content;
  std::size_t running = 0, unhealthy = 0;
  const auto& [engine, containers] = std::get<ContainerReading>(answer);
  for (const Container& container : containers) {
    ToolRow row;
    row.id = toQString(container.id);
    row.title = toQString(container.name);
    row.detail = toQString(container.image) + QStringLiteral(" · ") + toQString(container.status);
    if (!container.ports.empty()) row.address = QStringLiteral("http://localhost:%1").arg(container.ports.front());
    row.symbol = QStringLiteral("shippingbox");
    row.isRunning = container.isRunning;
    row.isFaulty = container.health == Container::Health::unhealthy;
    row.verb = container.isRunning ? tr("Stop") : tr("Start");
    running += container.isRunning ? 1 : 0;
    unhealthy += row.isFaulty ? 1 : 0;
    content.rows.push_back(std::move(row));
  }
  content.face.count = static_cast<int>(running);
  content.face.value = running == 0 ? tr("None running") : tr("%1 running").arg(running);
  content.face.isFaulty = unhealthy > 0;
  content.face.subLine =
      unhealthy > 0 ? tr("%1 unhealthy").arg(unhealthy) : counted(containers.size(), "1 container", "%1 containers");
  if (engine != "Docker") content.face.subLine = tr("%1 in %2").arg(content.face.subLine, toQString(engine));
  return content;
}

ToolContent packagesContent(const std::vector<std::string>& outdated) {
  ToolContent content;
  for (const std::string& line : outdated) {
    ToolRow row;
    row.id = toQString(line);
    row.title = row.id.section(u' ', 0, 0);
    row.detail = row.id.section(u' ', 1);
    row.symbol = QStringLiteral("shippingbox");
    content.rows.push_back(std::move(row));
  }
  content.face.count = static_cast<int>(outdated.size());
  content.face.value = outdated.empty() ? tr("Up to date") : tr("%1 outdated").arg(outdated.size());
  return content;
}

ToolContent packagesContent(const ToolFailure& failure) {
  if (failure.reason == ToolFailure::Reason::missing)
    return problem(tr("Homebrew is not installed"), tr("Install it from brew.sh to see what is outdated."));
  return problem(tr("Homebrew failed"), tr("Run “brew outdated” in a terminal to see why."));
}

QString rowIdOf(const Simulator& simulator) { return toQString(simulator.id); }

ToolContent simulatorsContent(const ToolAnswer<std::vector<Simulator>>& answer) {
  if (std::holds_alternative<ToolFailure>(answer))
    return problem(tr("No simulators installed"), tr("Install Android Studio's emulator to start its devices here."));
  ToolContent content;
  std::size_t running = 0;
  for (const Simulator& simulator : std::get<std::vector<Simulator>>(answer)) {
    ToolRow row;
    row.id = rowIdOf(simulator);
    row.title = toQString(simulator.name);
    row.isRunning = simulator.isRunning;
    QStringList details{toQString(simulator.version), simulator.isRunning ? tr("running") : QString()};
    details.removeAll(QString());
    row.detail = details.join(QStringLiteral(" · "));
    row.symbol = QStringLiteral("iphone");
    row.verb = simulator.isRunning ? QString() : tr("Start");
    running += simulator.isRunning ? 1 : 0;
    content.rows.push_back(std::move(row));
  }
  content.face.count = static_cast<int>(running);
  content.face.value = running == 0 ? tr("None running") : tr("%1 running").arg(running);
  content.face.subLine = counted(content.rows.size(), "1 device", "%1 devices");
  return content;
}

QString complaintOf(const std::optional<ToolFailure>& failure) {
  if (!failure) return {};
  return failure->words.empty() ? tr("The engine did not answer.") : toQString(failure->words);
}

GitFace gitFace(const QString& folder, const ToolAnswer<GitReading>& answer) {
  GitFace face;
  face.isChosen = true;
  face.path = folder;
  face.name = folder.section(u'/', -1);
  if (const auto* failure = std::get_if<ToolFailure>(&answer)) {
    switch (failure->reason) {
      case ToolFailure::Reason::noAccess:
        face.problem = tr("It belongs to another user");
        break;
      case ToolFailure::Reason::missing:
      case ToolFailure::Reason::elsewhere:
        face.problem = tr("There is no repository");
        break;
      case ToolFailure::Reason::failed:
        face.problem = failure->words.empty() ? tr("It cannot be read") : toQString(failure->words);
    }
    return face;
  }
  const GitState& state = std::get<GitReading>(answer).state;
  face.path = decoded(state.top.string());
  face.name = face.path.section(u'/', -1);
  face.branch = state.branch.empty() ? tr("Detached at %1").arg(toQString(state.commit)) : toQString(state.branch);
  face.summary = summaryOf(state);
  face.needsUser = state.operation != GitState::Operation::none || (state.changes && state.changes->conflicts > 0);
  return face;
}

std::vector<GitFact> gitFacts(const GitState& state) {
  std::vector<GitFact> facts;
  const auto add = [&](const char* title, const QString& figure) {
    if (figure.isEmpty()) return;
    facts.emplace_back();
    facts.back().title = tr(title);
    facts.back().figure = figure;
  };
  const auto number = [](std::size_t count) { return count == 0 ? QString() : QString::number(count); };
  add("Under way", operationText(state));
  add("Branch", toQString(state.branch));
  add("Commit", state.commit.empty() ? tr("None yet") : toQString(state.commit));
  if (const auto& upstream = state.upstream) {
    const QString name = toQString(upstream->name), apart = distance(*upstream);
    add("Upstream", upstream->isGone ? tr("%1 (gone)").arg(name) : name);
    if (!upstream->isGone) add("Difference", apart.isEmpty() ? tr("None") : apart);
  } else if (!state.branch.empty()) {
    add("Upstream", tr("None"));
  }
  if (const auto& changes = state.changes) {
    add("Conflicts", number(changes->conflicts));
    add("Staged", QString::number(changes->staged));
    add("Changed", QString::number(changes->changed));
    add("Untracked", QString::number(changes->untracked));
  } else {
    add("Changes", state.isBare ? tr("None in a bare repository") : tr("Too large to count"));
  }
  add("Stashes", number(state.stashes));
  return facts;
}

}  // namespace ambrel
