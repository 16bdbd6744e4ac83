#include "platform/linux/developer/GitReader.h"

#include <cstring>
#include <git2.h>
#include <memory>
#include <set>
#include <string_view>

#include "core/base/Files.h"
#include "core/base/Text.h"

namespace ambrel {
namespace {

using Clock = std::chrono::steady_clock;

// A watch takes memory of the kernel's. What has more folders than these is looked at now and then.
constexpr std::size_t mostFolders = 400;
constexpr int refLevels = 5;  // "refs/remotes/origin/feature/x"

template <auto release>
struct Release {
  void operator()(auto* object) const { release(object); }
};
template <typename Object, auto release>
using Owned = std::unique_ptr<Object, Release<release>>;
using Repository = Owned<git_repository, git_repository_free>;
using Reference = Owned<git_reference, git_reference_free>;
using Index = Owned<git_index, git_index_free>;
using Diff = Owned<git_diff, git_diff_free>;

// Calls a function whose first parameter takes the object.
template <typename Result>
Result made(auto function, auto... arguments) {
  typename Result::pointer object = nullptr;
  return Result(function(&object, arguments...) == 0 ? object : nullptr);
}

std::string text(const char* words) { return words ? words : ""; }

std::string lastWords() {
  const git_error* error = git_error_last();
  return error ? text(error->message) : "";
}

std::string wordIn(const std::filesystem::path& file) {
  return std::string(trimmed(readFile(file, 4096).value_or("")));
}
int numberIn(const std::filesystem::path& file) { return std::atoi(wordIn(file).c_str()); }

std::string branchName(std::string_view reference) {
  constexpr std::string_view prefix = "refs/heads/";
  return repairedUTF8(reference.starts_with(prefix) ? reference.substr(prefix.size()) : reference);
}

GitState::Operation operationOf(git_repository* repository) {
  using enum GitState::Operation;
  switch (git_repository_state(repository)) {
    case GIT_REPOSITORY_STATE_MERGE:
      return merge;
    case GIT_REPOSITORY_STATE_REVERT:
    case GIT_REPOSITORY_STATE_REVERT_SEQUENCE:
      return revert;
    case GIT_REPOSITORY_STATE_CHERRYPICK:
    case GIT_REPOSITORY_STATE_CHERRYPICK_SEQUENCE:
      return cherryPick;
    case GIT_REPOSITORY_STATE_BISECT:
      return bisect;
    case GIT_REPOSITORY_STATE_REBASE:
    case GIT_REPOSITORY_STATE_REBASE_INTERACTIVE:
    case GIT_REPOSITORY_STATE_REBASE_MERGE:
      return rebase;
    case GIT_REPOSITORY_STATE_APPLY_MAILBOX:
    case GIT_REPOSITORY_STATE_APPLY_MAILBOX_OR_REBASE:
      return applyMail;
    default:
      return none;
  }
}

void readOperation(git_repository* repository, const std::filesystem::path& folder, GitState& state) {
  state.operation = operationOf(repository);
  if (state.operation != GitState::Operation::rebase && state.operation != GitState::Operation::applyMail) return;
  const bool isMerging = fileStatus(folder / "rebase-merge").has_value();
  const std::filesystem::path progress = folder / (isMerging ? "rebase-merge" : "rebase-apply");
  state.step = numberIn(progress / (isMerging ? "msgnum" : "next"));
  state.steps = numberIn(progress / (isMerging ? "end" : "last"));
  if (const std::string name = wordIn(progress / "head-name"); name.starts_with("refs/"))
    state.branch = branchName(name);
}

std::optional<GitState::Upstream> upstreamOf(git_repository* repository, git_reference* branch) {
  git_buf name = GIT_BUF_INIT;
  const bool hasName = git_branch_upstream_name(&name, repository, git_reference_name(branch)) == 0;
  const std::string full = hasName ? std::string(name.ptr, name.size) : "";
  git_buf_dispose(&name);
  if (!hasName) return std::nullopt;
  GitState::Upstream upstream{.name = full};
  for (const std::string_view prefix : {"refs/remotes/", "refs/heads/"})
    if (full.starts_with(prefix)) upstream.name = repairedUTF8(std::string_view(full).substr(prefix.size()));
  const auto reference = made<Reference>(git_branch_upstream, branch);
  const git_oid* ours = git_reference_target(branch);
  const git_oid* theirs = reference ? git_reference_target(reference.get()) : nullptr;
  upstream.isGone = !theirs;
  if (ours && theirs) git_graph_ahead_behind(&upstream.ahead, &upstream.behind, repository, ours, theirs);
  return upstream;
}

void readHead(git_repository* repository, GitState& state) {
  const auto head = made<Reference>(git_repository_head, repository);
  if (!head) {
    // Before the first commit HEAD names a branch that is not there.
    const auto named = made<Reference>(git_reference_lookup, repository, "HEAD");
    const char* target = named ? git_reference_symbolic_target(named.get()) : nullptr;
    if (target) state.branch = branchName(target);
    return;
  }
  if (const git_oid* commit = git_reference_target(head.get())) {
    char digits[8] = {};
    git_oid_tostr(digits, sizeof digits, commit);
    state.commit = digits;
  }
  if (!git_reference_is_branch(head.get())) return;
  state.branch = branchName(text(git_reference_name(head.get())));
  state.upstream = upstreamOf(repository, head.get());
}

int isOver(const git_diff*, const char*, const char*, void* deadline) {
  return Clock::now() > *static_cast<Clock::time_point*>(deadline) ? 1 : 0;
}

git_diff_options diffOptions(Clock::time_point& deadline) {
  git_diff_options options;
  git_diff_options_init(&options, GIT_DIFF_OPTIONS_VERSION);
  options.flags = GIT_DIFF_INCLUDE_UNTRACKED | GIT_DIFF_INCLUDE_TYPECHANGE;
  // What is changed within a submodule is shown by a tile of its own; only its commit counts here.
  options.ignore_submodules = GIT_SUBMODULE_IGNORE_DIRTY;
  options.progress_cb = isOver;
  options.payload = &deadline;
  return options;
}

// What is not counted is added to `changed`.
void count(const git_diff* diff, std::size_t& changed, std::size_t& untracked) {
  for (std::size_t i = 0; i < git_diff_num_deltas(diff); ++i) switch (git_diff_get_delta(diff, i)->status) {
      case GIT_DELTA_UNTRACKED:
        ++untracked;
        break;
      case GIT_DELTA_CONFLICTED:
      case GIT_DELTA_IGNORED:
      case GIT_DELTA_UNMODIFIED:
        break;
      default:
        ++changed;
    }
}

std::size_t conflictsIn(git_index* index) {
  std::size_t conflicts = 0;
  const auto each = made<Owned<git_index_conflict_iterator, git_index_conflict_iterator_free>>(
      git_index_conflict_iterator_new, index);
  const git_index_entry *base, *ours, *theirs;
  while (each && git_index_conflict_next(&base, &ours, &theirs, each.get()) == 0) ++conflicts;
  return conflicts;
}

std::optional<GitState::Changes> changesOf(git_repository* repository, git_index* index, Clock::time_point deadline) {
  const git_diff_options options = diffOptions(deadline);
  GitState::Changes changes{.conflicts = conflictsIn(index)};
  const auto tree = made<Owned<git_object, git_object_free>>(git_revparse_single, repository, "HEAD^{tree}");
  const auto staged =
      made<Diff>(git_diff_tree_to_index, repository, reinterpret_cast<git_tree*>(tree.get()), index, &options);
  if (!staged) return std::nullopt;
  count(staged.get(), changes.staged, changes.untracked);
  const auto inTree = made<Diff>(git_diff_index_to_workdir, repository, index, &options);
  if (!inTree) return std::nullopt;
  count(inTree.get(), changes.changed, changes.untracked);
  return changes;
}

// The folders that hold tracked files; false when there are too many.
bool addTreeFolders(git_index* index, const std::filesystem::path& top, std::vector<WatchedFolder>& folders) {
  std::set<std::string_view> found{""};
  for (std::size_t i = 0; i < git_index_entrycount(index) && found.size() <= mostFolders; ++i) {
    const std::string_view path = git_index_get_byindex(index, i)->path;
    for (std::size_t slash = path.rfind('/'); slash != std::string_view::npos; slash = path.rfind('/', slash - 1)) {
      if (!found.insert(path.substr(0, slash)).second || slash == 0) break;
    }
  }
  const bool isWhole = found.size() <= mostFolders;
  if (!isWhole) found = {""};
  for (const std::string_view folder : found) folders.push_back({folder.empty() ? top : top / folder});
  return isWhole;
}

// Whether there is a repository, whoever's it is.
bool isThere(const std::filesystem::path& folder) {
  git_buf found = GIT_BUF_INIT;
  const bool is = git_repository_discover(&found, folder.c_str(), 0, nullptr) == 0;
  git_buf_dispose(&found);
  return is;
}

}  // namespace

ToolAnswer<GitReading> readRepository(const std::filesystem::path& folder, std::chrono::milliseconds limit) {
  static const int isReady = git_libgit2_init();
  static_cast<void>(isReady);
  git_repository* opened = nullptr;
  const int error = git_repository_open_ext(&opened, folder.c_str(), 0, nullptr);
  const Repository repository(opened);
  // Version 1.5 says of another user's repository that it is not there, while no safe.directory is configured.
  if (error == GIT_EOWNER || (error == GIT_ENOTFOUND && isThere(folder)))
    return ToolFailure{ToolFailure::Reason::noAccess};
  if (error == GIT_ENOTFOUND) return ToolFailure{ToolFailure::Reason::missing};
  if (error != 0) return ToolFailure{ToolFailure::Reason::failed, lastWords()};

  GitReading reading;
  GitState& state = reading.state;
  const std::filesystem::path gitFolder = text(git_repository_path(opened));
  const std::filesystem::path commonFolder = text(git_repository_commondir(opened));
  const char* top = git_repository_workdir(opened);
  state.isBare = !top;
  state.top = (top ? std::filesystem::path(top) : gitFolder).parent_path();  // both end in a slash
  readHead(opened, state);
  readOperation(opened, gitFolder, state);
  git_stash_foreach(
      opened,
      [](std::size_t, const char*, const git_oid*, void* count) { return ++*static_cast<std::size_t*>(count), 0; },
      &state.stashes);

  reading.folders.push_back({gitFolder.parent_path()});
  if (commonFolder != gitFolder) reading.folders.push_back({commonFolder.parent_path()});
  reading.folders.push_back({commonFolder / "refs", refLevels});
  if (state.isBare) return reading;
  const auto index = made<Index>(git_repository_index, opened);
  if (!index) return ToolFailure{ToolFailure::Reason::failed, lastWords()};
  reading.isPartlyWatched = !addTreeFolders(index.get(), state.top, reading.folders);
  state.changes = changesOf(opened, index.get(), Clock::now() + limit);
  return reading;
}

}  // namespace ambrel
