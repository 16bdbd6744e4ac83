#pragma once
// Quick Translate: the clipboard's text in another language, by a server or a language model on this machine.

#include <QStringList>
#include <QtQml/qqmlregistration.h>
#include <stop_token>

#include "app/base/Face.h"
#include "app/tools/ToolSeams.h"
#include "app/tools/TranslationServer.h"

namespace ambrel {

struct TranslateFace {
  Q_GADGET
  QML_VALUE_TYPE(translateFace)
 public:
  FACE_FIELDS(QString, input, output);
  FACE_FIELDS(QString, detected);           // the name of the language that was found
  FACE_FIELDS(QString, by);                 // what translates
  FACE_FIELDS(QString, problem);            // why there is no translation: a sentence
  FACE_FIELDS(QString, address, stranger);  // as chosen; the computer that is not allowed yet
  FACE_FIELDS(QString, code);               // of the target, "DE"
  FACE_FIELDS(QString, targetName);
  FACE_FIELDS(int, source, target);  // indexes of the languages; a source of 0 is found out
  FACE_FIELDS(bool, isWorking);
  FACE_FIELDS(bool, isStale);  // the input has changed since it was translated
  bool operator==(const TranslateFace&) const = default;
};

class TranslateModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::TranslateFace face READ face NOTIFY faceChanged FINAL)
  Q_PROPERTY(QStringList sources READ sources CONSTANT FINAL)
  Q_PROPERTY(QStringList targets READ targets CONSTANT FINAL)

 public:
  // The seams outlive it. The languages are in the defaults translate.source and translate.target.
  explicit TranslateModel(const ToolSeams& seams, QObject* parent = nullptr);
  ~TranslateModel() override { run_.request_stop(); }

  // The languages are looked up when somebody first asks for the face.
  const TranslateFace& face();
  QStringList sources();
  QStringList targets();
  void reload();

  // Of the panel: takes the clipboard's text and translates it. Nothing is kept after its end.
  Q_INVOKABLE void begin();
  Q_INVOKABLE void end();
  Q_INVOKABLE void useClipboard();
  Q_INVOKABLE void setInput(const QString& text);
  Q_INVOKABLE void translate();
  Q_INVOKABLE void setSource(int index);
  Q_INVOKABLE void setTarget(int index);
  // The translation becomes the text, and the languages change places.
  Q_INVOKABLE void swap();
  Q_INVOKABLE void copy();
  // The server. One on another computer has to be allowed first. False if it is not an address.
  Q_INVOKABLE bool setAddress(const QString& address);
  Q_INVOKABLE void allow();

 Q_SIGNALS:
  void faceChanged();

 private:
  // What is stored.
  void read(TranslateFace& face) const;
  void change(const std::function<void(TranslateFace&)>& edit);
  void store(const char* key, const std::string& code);
  void takeInput(const QString& text);
  void stop();
  void findTranslator(int generation);
  void askModel(int generation);
  void askServer(const QString& address, int generation);
  void show(const Translation& translation, bool isWhole, int generation);
  void fail(const QString& problem, int generation);

  const ToolSeams& seams_;
  std::vector<TranslationLanguage> languages_;
  TranslationServer server_;
  TranslateFace face_;
  TranslationTask task_;  // that was asked last
  std::string found_;     // the code of the language that was found
  std::stop_source run_;
  int generation_ = 0;
  bool isOpen_ = false;
};

}  // namespace ambrel
