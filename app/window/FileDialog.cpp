#include "app/window/FileDialog.h"

#include <QFile>
#include <QFileDialog>
#include <QFont>
#include <QPalette>
#include <QWindow>

namespace ambrel {
namespace {

void choose(QFileDialog* dialog, QWindow* parent, const QPalette& palette, Chosen chosen) {
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setPalette(palette);
  dialog->setFont(QFont(QStringLiteral("Inter"), dialog->font().pointSize()));
  dialog->winId();
  if (parent && dialog->windowHandle()) {
    dialog->windowHandle()->setTransientParent(parent);
    QObject::connect(parent, &QObject::destroyed, dialog, &QObject::deleteLater);
  }
  dialog->setWindowModality(Qt::WindowModal);
  // When a path is typed, Qt's dialog selects both the folder shown so far and the typed one. The last one is meant;
  // `fileSelected` is not emitted for two.
  QObject::connect(dialog, &QFileDialog::filesSelected, dialog, [chosen = std::move(chosen)](const QStringList& paths) {
    if (!paths.isEmpty()) chosen(QFile::encodeName(paths.last()).toStdString());
  });
  dialog->open();
}

}  // namespace

void chooseFolder(QWindow* parent, const QString& title, const QString& start, const QPalette& palette, Chosen chosen) {
  auto* dialog = new QFileDialog(nullptr, title, start);
  dialog->setFileMode(QFileDialog::Directory);
  dialog->setOption(QFileDialog::ShowDirsOnly);
  choose(dialog, parent, palette, std::move(chosen));
}

void chooseNewFile(QWindow* parent, const QString& title, const QString& start, const QPalette& palette,
                   Chosen chosen) {
  auto* dialog = new QFileDialog(nullptr, title, start);
  dialog->setAcceptMode(QFileDialog::AcceptSave);
  choose(dialog, parent, palette, std::move(chosen));
}

void chooseFile(QWindow* parent, const QString& title, const QString& start, const QPalette& palette, Chosen chosen) {
  auto* dialog = new QFileDialog(nullptr, title, start);
  dialog->setFileMode(QFileDialog::ExistingFile);
  choose(dialog, parent, palette, std::move(chosen));
}

}  // namespace ambrel
