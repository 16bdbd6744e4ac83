// A copied text of any bytes: its kind, whether it is a secret, how a card shows it, and how a search folds it.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/base/Text.h"
#include "core/clipboard.h"
#include "core/clipboard/Capture.h"
#include "core/clipboard/ClipPreview.h"

using namespace ambrel;

namespace {

void expect(bool isTrue) {
  if (!isTrue) __builtin_trap();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const ClipKind kind = classify(bytes);
  expect(kind == ClipKind::text || kind == ClipKind::link || kind == ClipKind::color);
  const bool isSensitive = SensitiveText::isSensitive(bytes);
  expect(isSensitive || !SensitiveText::isCardNumber(bytes));

  for (const char* type : {"UTF8_STRING", "STRING", "text/plain", "text/uri-list"}) {
    const std::vector<Fetched> fetched{{type, std::string(bytes)}};
    const PasteboardContents contents = contentsOf(fetched);
    expect(!contents.text || isValidUTF8(*contents.text));
    if (contents.filePaths.empty()) continue;
    const auto item = fileItem(contents.filePaths, {});
    expect(item && isValidUTF8(*item->text) && filePaths(*item) == contents.filePaths);
  }

  if (const auto item = textItem(repairedUTF8(bytes), {})) {
    const ClipPreview preview = previewOf(*item, isSensitive);
    expect(isValidUTF8(preview.title) && isValidUTF8(preview.detail));
    expect(isValidUTF8(clipName(*item)));
    // What is folded once stays as it is, so that a text finds itself.
    for (const SearchFolding folding : {SearchFolding{false}, SearchFolding{true}})
      expect(isValidUTF8(folding.folded(*item->text)));
  }
  return 0;
}
