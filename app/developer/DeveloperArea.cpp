#include "app/developer/DeveloperArea.h"

#include <QStandardPaths>

#include "app/base/QmlObjects.h"
#include "app/base/Replaced.h"
#include "app/base/StoredValue.h"
#include "app/kit/DialogPalette.h"
#include "app/kit/Theme.h"
#include "app/window/FileDialog.h"
#include "core/base/LocalText.h"

namespace ambrel {
namespace {

constexpr const char* checkedKey = "homebrewCheckedAt";
constexpr const char* outdatedKey = "homebrewOutdated";

// The record behind a row, from the last reading of its list. Only the list's own thread uses it.
template <typename Record>
std::optional<Record> behind(const std::vector<Record>& records, const QString& row) {
  const auto found = std::ranges::find_if(records, [&](const Record& record) { return rowIdOf(record) == row; });
  return found == records.end() ? std::nullopt : std::optional(*found);
}

}  // namespace

DeveloperArea::DeveloperArea(Seams seams, Shell& shell, QObject* parent)
    : Area(QStringLiteral("Developer"), parent),
      seams_(std::move(seams)),
      shell_(shell),
      git_({seams_.defaults, seams_.repositoryFolders, seams_.tools, seams_.background(), seams_.repositoryPause}),
      servers_(serversSource(), seams_.background(), shell),
      containers_(containersSource(), seams_.background(), shell),
      packages_(packagesSource(), seams_.background(), shell),
      simulators_(simulatorsSource(), seams_.background(), shell) {
  keep({this});
  showStoredPackages();
}

DeveloperList::Source DeveloperArea::serversSource() const {
  auto records = std::make_shared<std::vector<LocalServer>>();
  return {.read =
              [tools = seams_.tools, records, home = toQString(seams_.home)] {
                *records = tools->servers();
                return serversContent(*records, home);
              },
          .act =
              [tools = seams_.tools, records](const QString& row, bool) {
                const auto server = behind(*records, row);
                return server && tools->stop(*server) ? QString() : tr("This program no longer listens there.");
              }};
}

DeveloperList::Source DeveloperArea::containersSource() const {
  return {
      .read = [tools = seams_.tools] { return containersContent(tools->containers()); },
      .act = [tools = seams_.tools](const QString& row,
                                    bool starts) { return complaintOf(tools->setRunning(row.toStdString(), starts)); },
      .log =
          [tools = seams_.tools](const QString& row) {
            const auto answer = tools->log(row.toStdString());
            const auto* failure = std::get_if<ToolFailure>(&answer);
            return failure ? complaintOf(*failure) : toQString(std::get<std::string>(answer));
          },
      .interval = 5};
}

DeveloperList::Source DeveloperArea::packagesSource() {
  auto found = std::make_shared<std::optional<std::vector<std::string>>>();
  return {.read =
              [tools = seams_.tools, found] {
                auto answer = tools->outdatedPackages();
                found->reset();
                if (const auto* failure = std::get_if<ToolFailure>(&answer)) return packagesContent(*failure);
                *found = std::get<std::vector<std::string>>(std::move(answer));
                return packagesContent(**found);
              },
          .interval = 15,
          .isDue =
              [this] {
                const auto checked = seams_.defaults.date(checkedKey);
                const Instant now = seams_.now();
                const auto isOlder = [now](Instant then, auto age) { return now < then || now - then >= age; };
                if (!isOlder(packagesTried_, retryAge) || (checked && !isOlder(*checked, packagesAge))) return false;
                packagesTried_ = now;
                return true;
              },
          .take =
              [this, found](ToolContent& content) {
                if (*found) {
                  DefaultsArray lines;
                  for (const std::string& line : **found) lines.push_back({line});
                  store(seams_.defaults, outdatedKey, DefaultsValue{std::move(lines)});
                  store(seams_.defaults, checkedKey, DefaultsValue{seams_.now()});
                }
                completePackages(content);
              }};
}

DeveloperList::Source DeveloperArea::simulatorsSource() const {
  auto records = std::make_shared<std::vector<Simulator>>();
  return {.read =
              [tools = seams_.tools, records] {
                const auto answer = tools->simulators();
                const auto* list = std::get_if<std::vector<Simulator>>(&answer);
                *records = list ? *list : std::vector<Simulator>();
                return simulatorsContent(answer);
              },
          .act =
              [tools = seams_.tools, records](const QString& row, bool) {
                const auto simulator = behind(*records, row);
                return simulator && tools->start(*simulator) ? QString() : tr("It could not be started.");
              },
          .interval = 8};
}

void DeveloperArea::completePackages(ToolContent& content) const {
  const auto checked = seams_.defaults.date(checkedKey);
  if (checked && content.face.problem.isEmpty()) {
    const Calendar& calendar = seams_.calendar();
    const bool isToday = calendar.dayKey(*checked) == calendar.dayKey(seams_.now());
    content.face.subLine =
        tr("Checked %1")
            .arg(toQString(isToday ? shortTime(calendar, *checked) : formattedDate(calendar, *checked, "dMMM")));
  }
}

void DeveloperArea::showStoredPackages() {
  if (!seams_.defaults.date(checkedKey)) return;
  ToolContent content = packagesContent(seams_.defaults.strings(outdatedKey).value_or(std::vector<std::string>()));
  completePackages(content);
  packages_.show(std::move(content));
}

// The text of a moment depends on the present day and on the zone.
void DeveloperArea::completeShownPackages() {
  ToolContent content = packages_.content();
  completePackages(content);
  packages_.show(std::move(content));
}

void DeveloperArea::askForRepository() {
  const QString start =
      git_.face().isChosen ? git_.face().path : QStandardPaths::writableLocation(QStandardPaths::HomeLocation);
  chooseFolder(nullptr, tr("Choose a Git repository."), start, dialogPalette(themeOf(seams_.engine).palette()),
               git_.chooser());
}

void DeveloperArea::openRepository() { openURL(QUrl::fromLocalFile(git_.face().path)); }

void DeveloperArea::openURL(const QUrl& url) {
  if (!seams_.open(url))
    shell_.showToast(tr("No program can open it"), url.toDisplayString(), QStringLiteral("exclamationmark.triangle"));
}

void DeveloperArea::widgetsChanged(const std::set<DockWidget>& onBar, bool areSeen, Instant /*now*/) {
  using enum DockWidget;
  git_.setSeen(areSeen && onBar.contains(gitStatus));
  servers_.setSeen(areSeen && onBar.contains(ports));
  containers_.setSeen(areSeen && onBar.contains(docker));
  packages_.setSeen(areSeen && onBar.contains(homebrew));
  simulators_.setSeen(areSeen && onBar.contains(DockWidget::simulators));
}

void DeveloperArea::tick(Instant now) {
  if (replaced(day_, seams_.calendar().dayKey(now))) completeShownPackages();
  git_.tick();
  for (DeveloperList* list : {&servers_, &containers_, &packages_, &simulators_}) list->tick();
}

QVariantMap DeveloperArea::sample(DockWidget widget) {
  const auto shows = [](const auto& face) { return QVariantMap{{QStringLiteral("face"), QVariant::fromValue(face)}}; };
  const Simulator phone{.id = "a", .isRunning = true};
  const Container web{.id = "a", .isRunning = true};
  GitReading repository;
  repository.state = {.top = "/shop",
                      .branch = "main",
                      .commit = "0a1b2c3",
                      .upstream = GitState::Upstream{.name = "origin/main", .ahead = 2},
                      .changes = GitState::Changes{.changed = 3}};
  if (widget == DockWidget::gitStatus) return shows(gitFace({}, repository));
  if (widget == DockWidget::docker) return shows(containersContent(ContainerReading{"Docker", {web, web, web}}).face);
  if (widget == DockWidget::homebrew) return shows(packagesContent({"node", "wget"}).face);
  if (widget == DockWidget::simulators) return shows(simulatorsContent(std::vector{phone, phone}).face);
  return shows(serversContent({{.port = 5173, .pid = 2}, {.port = 8080, .pid = 3}}, {}).face);
}

void DeveloperArea::defaultsChanged(const std::set<std::string>& keys) {
  if (keys.contains(GitModel::chosenKey)) git_.reload();
  if (keys.contains(checkedKey) || keys.contains(outdatedKey)) showStoredPackages();
}

}  // namespace ambrel
