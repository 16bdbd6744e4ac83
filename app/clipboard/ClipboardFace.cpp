#include "app/clipboard/ClipboardFace.h"

#include <QCoreApplication>
#include <algorithm>

#include "app/base/StoredValue.h"
#include "core/base/LocalText.h"
#include "core/clipboard/ClipPreview.h"

namespace ambrel {
namespace {

QString tr(const char* text) { return QCoreApplication::translate("ambrel::ClipboardFace", text); }

QString counted(const Calendar& calendar, std::ptrdiff_t count) {
  return toQString(decimal(calendar, static_cast<double>(count), 0));
}

QString summary(const ClipboardLibrary& library, bool isReadOnly, const Calendar& calendar) {
  const auto count = std::ssize(library.items);
  const auto pinned = std::ranges::count_if(library.items, &ClipItem::isPinned);
  QString text = count == 1 ? tr("1 item") : tr("%1 items").arg(counted(calendar, count));
  if (isReadOnly) text = tr("%1 · read-only, another Tilebay keeps them").arg(text);
  return pinned == 0 ? text : tr("%1 · %2 pinned").arg(text, counted(calendar, pinned));
}

QString emptyTitle(const ClipboardView& view, bool isEmpty) {
  if (view.isSearching) return tr("No matches");
  if (!isEmpty) return tr("Nothing here yet");
  return view.isOn ? tr("Nothing copied yet") : tr("The clipboard history is off");
}

QString emptySentence(const ClipboardView& view, bool isEmpty) {
  if (view.isSearching) return tr("No clip here has this text.");
  if (std::holds_alternative<ClipFilter::Pinned>(view.filter.value)) return tr("Pin a clip with the star on its card.");
  if (std::holds_alternative<ClipFilter::Collection>(view.filter.value))
    return tr("Put clips into this collection from their menus.");
  if (!isEmpty) return tr("There is no clip of this kind.");
  return view.isOn ? tr("What you copy in any program appears here.") : tr("Switch it on in the clipboard settings.");
}

}  // namespace

ClipboardFace clipboardFace(const ClipboardLibrary& library, const ClipIndex& index, const ClipboardView& view,
                            Instant now, const Calendar& calendar) {
  const bool isEmpty = library.items.empty();
  const QString count = counted(calendar, std::ssize(library.items));
  ClipboardFace face{.isEmpty = isEmpty,
                     .isInUse = view.isOn && !isEmpty,
                     .value = !view.isOn ? tr("Off")
                              : isEmpty  ? tr("Empty")
                                         : count,
                     .unit = {},
                     .line = isEmpty ? view.isOn ? tr("Copy something") : tr("Nothing is kept") : QString(),
                     .shortLine = {},
                     .latestText = {},
                     .latestAge = {},
                     .summary = summary(library, view.isReadOnly, calendar),
                     .emptyTitle = emptyTitle(view, isEmpty),
                     .emptySentence = emptySentence(view, isEmpty)};
  if (!isEmpty) {
    const ClipItem& latest = library.items.front();
    const ClipFacts* facts = index.find(latest.id);
    const QString age = toQString(relativeAge(calendar, latest.createdAt, now));
    face.latestText = facts && facts->isSensitive ? tr("Secret") : toQString(clipName(latest));
    face.latestAge = toQString(shortAge(calendar, latest.createdAt, now));
    face.line = view.isOn ? tr("Last copy %1").arg(age) : tr("%1 kept from before").arg(count);
    if (view.isOn) {
      face.unit = library.items.size() == 1 ? tr("clip") : tr("clips");
      face.shortLine = age;
    }
  }
  if (face.shortLine.isEmpty()) face.shortLine = face.line;
  return face;
}

ClipboardFace sampleClipboardFace(Instant now, const Calendar& calendar) {
  ClipboardLibrary library;
  library.items.resize(24);
  library.items.front().text = tr("Meeting notes and the plan for next week").toStdString();
  library.items.front().createdAt = now - std::chrono::minutes(2);
  return clipboardFace(library, ClipIndex(), ClipboardView(), now, calendar);
}

}  // namespace ambrel
