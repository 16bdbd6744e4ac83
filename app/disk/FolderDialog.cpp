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
  QObject::connect(dialog, &QFileDialog::fileSelected, dialog, [chosen = std::move(chosen)](const QString& folder) {
    chosen(QFile::encodeName(folder).toStdString());
  });
  dialog->open();
}

}  // namespace ambrel
