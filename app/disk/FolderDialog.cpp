#include "app/disk/FolderDialog.h"

#include <QFile>
#include <QFileDialog>
#include <QFont>
#include <QPalette>
#include <QWindow>

namespace ambrel {

void chooseFolder(QWindow* parent, const QString& title, const QString& start, const QPalette& palette,
                  std::function<void(const std::string&)> chosen) {
  auto* dialog = new QFileDialog(nullptr, title, start);
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setFileMode(QFileDialog::Directory);
  dialog->setOption(QFileDialog::ShowDirsOnly);
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
  QObject::connect(dialog, &QFileDialog::filesSelected, dialog,
                   [chosen = std::move(chosen)](const QStringList& folders) {
                     if (!folders.isEmpty()) chosen(QFile::encodeName(folders.last()).toStdString());
                   });
  dialog->open();
}

}  // namespace ambrel
