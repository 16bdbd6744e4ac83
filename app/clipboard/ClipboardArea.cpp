#include "app/clipboard/ClipboardArea.h"

#include "app/base/QmlObjects.h"

namespace ambrel {

ClipboardArea::ClipboardArea(AppSettings& settings, std::filesystem::path folder, Calendar calendar,
                             ClipboardModel::Seams seams, QObject* parent)
    : Area(QStringLiteral("Clipboard"), parent),
      clipboard_(settings, std::move(folder), std::move(calendar), std::move(seams)) {
  keep({this, &clipboard_, clipboard_.items(), clipboard_.collections()});
}

bool ClipboardArea::carryOut(const Wish& wish) {
  if (std::holds_alternative<wish::ToggleClipboard>(wish)) {
    Q_EMIT shelfAsked();
    return true;
  }
  const auto* pinned = std::get_if<wish::CopyPinned>(&wish);
  if (pinned) Q_EMIT pinnedAsked(pinned->number);
  return pinned;
}

std::vector<AreaKey> ClipboardArea::keys() {
  std::vector<AreaKey> keys{{&setting::shelfKeys, [this] { Q_EMIT shelfAsked(); }, "--toggle-clipboard"}};
  for (int number = 1; number <= 9; ++number)
    keys.push_back({&setting::pinnedKeys, [this, number] { Q_EMIT pinnedAsked(number); },
                    "--copy-pinned " + std::to_string(number), static_cast<char>('0' + number),
                    tr("Copies pinned clip %1").arg(number).toStdString()});
  return keys;
}

}  // namespace ambrel
