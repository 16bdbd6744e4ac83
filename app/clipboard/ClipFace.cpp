#include "app/clipboard/ClipFace.h"

#include <QCoreApplication>
#include <cmath>

#include "app/base/StoredValue.h"
#include "core/base/LocalText.h"
#include "core/clipboard/CodeWords.h"

namespace ambrel {
namespace {

QString words(const char* text) { return QCoreApplication::translate("ambrel::ClipFace", text); }

QString kindText(const ClipPreview& preview) {
  switch (preview.look) {
    case ClipLook::text:
      return words("Text");
    case ClipLook::code:
      return words("Code");
    case ClipLook::link:
      return words("Link");
    case ClipLook::color:
      return words("Color");
    case ClipLook::image:
      return words("Image");
    case ClipLook::files:
      return preview.fileCount == 1 ? words("File") : words("Files");
    case ClipLook::secret:
      return words("Secret");
  }
  return {};
}

QString markup(const std::string& code) {
  QString text;
  for (const CodePiece& piece : codePieces(code)) {
    QString words = toQString(piece.text).toHtmlEscaped();
    words.replace(u'\t', QStringLiteral("    ")).replace(u' ', QStringLiteral("&nbsp;"));
    words.replace(u'\n', QStringLiteral("<br/>"));
    text += piece.word == CodeWord::plain
                ? words
                : QStringLiteral("<font color=\"%1\">%2</font>").arg(toQString(nameOf(piece.word)), words);
  }
  return text;
}

QVariantList fileList(const ClipPreview& preview, const ClipFiles* known) {
  QVariantList list;
  for (std::size_t i = 0; i < preview.fileNames.size(); ++i) {
    const bool isFolder = known && i < known->isFolder.size() && known->isFolder[i];
    list.append(
        QVariantMap{{QStringLiteral("name"), toQString(preview.fileNames[i])},
                    {QStringLiteral("symbol"), isFolder ? QStringLiteral("folder.fill") : QStringLiteral("doc.text")}});
  }
  return list;
}

QString foot(const ClipRow& row, const ClipFacts& facts, const ClipFiles* files, const Calendar& calendar) {
  if (facts.preview.look == ClipLook::image && facts.pictureSize)
    return QStringLiteral("%1\u2009×\u2009%2").arg(facts.pictureSize->width).arg(facts.pictureSize->height);
  if (facts.preview.look == ClipLook::files && files && files->bytes)
    return toQString(fileSize(calendar, static_cast<std::int64_t>(*files->bytes)));
  return row.program;
}

QString forgetting(const ClipRow& row, const ClipFacts& facts, const ClipMoment& moment) {
  if (!facts.isSensitive || row.isKept || !moment.sensitiveAge) return {};
  const double minutes = std::ceil((*moment.sensitiveAge - secondsBetween(row.createdAt, moment.now)).count() / 60);
  // No line break inside "in 42 min".
  return minutes < 1 ? words("forgotten soon") : words("forgotten in\u00A0%1\u00A0min").arg(static_cast<int>(minutes));
}

QString lostTitle(const ClipRow& row, const Calendar& calendar) {
  if (row.lost->reason == LostCopy::Reason::noAnswer) return words("The program did not hand its copy over.");
  const QString what = row.kind == ClipKind::image  ? words("A picture")
                       : row.kind == ClipKind::file ? words("A list of files")
                                                    : words("A text");
  return words("%1 of %2: too large to keep")
      .arg(what, toQString(fileSize(calendar, static_cast<std::int64_t>(row.lost->bytes))));
}

}  // namespace

ClipFace clipFace(const ClipRow& row, const ClipFacts& facts, const ClipFiles* files, const ClipMoment& moment) {
  const ClipPreview& preview = facts.preview;
  ClipFace face;
  face.clipId = toQString(row.id.text());
  face.age = toQString(shortAge(moment.calendar, row.createdAt, moment.now));
  QStringList spoken;
  if (row.lost) {
    face.look = QStringLiteral("lost");
    face.kindText = words("Not kept");
    face.title = lostTitle(row, moment.calendar);
    face.foot = row.program;
    spoken = {face.kindText, face.title, face.foot};
  } else {
    face.look = toQString(nameOf(preview.look));
    face.kindText = kindText(preview);
    face.title = toQString(preview.title);
    face.detail = toQString(preview.detail);
    if (preview.look == ClipLook::code) face.code = markup(preview.title);
    if (const auto& color = preview.color) face.swatch = QColor(color->red, color->green, color->blue, color->alpha);
    face.files = fileList(preview, files);
    if (preview.fileCount > preview.fileNames.size())
      face.moreFiles = words("and %1 more").arg(preview.fileCount - preview.fileNames.size());
    face.picture = toQString(row.imageFileName);
    face.foot = foot(row, facts, files, moment.calendar);
    face.forgetting = forgetting(row, facts, moment);
    face.pinNumber = row.pinNumber;
    face.isPinned = row.isPinned;
    face.isCurrent = row.isCurrent;
    face.hasTextBeside = row.hasTextBeside;
    spoken << face.kindText;
    for (const std::string& name : preview.fileNames) spoken << toQString(name);
    if (preview.look != ClipLook::secret) spoken << face.title;
    spoken << face.forgetting << face.age;
    if (row.isPinned) spoken << words("pinned");
    if (row.isCurrent) spoken << words("on the clipboard now");
  }
  spoken.removeAll(QString());
  face.spoken = spoken.join(QStringLiteral(", "));
  return face;
}

}  // namespace ambrel
