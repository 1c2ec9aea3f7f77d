// Message boxes, input boxes and file dialogs of the desktop program.
#include "ui/common/qt_prompts.h"

#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QStringList>

#include "core/common/text_rules.h"
#include "core/session/session.h"

namespace marlview {

QString ToQString(std::string_view text) { return QString::fromStdString(ToUtf8(text)); }

QString ToDialogFilter(const std::string& filter, int index, QString* selected) {
  const QStringList parts = ToQString(filter).split('|');
  QStringList entries;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    QString label = parts[i];
    const qsizetype paren = label.indexOf('(');
    if (paren > 0) label = label.left(paren).trimmed();
    QStringList patterns;
    for (const QString& pattern : parts[i + 1].split(';', Qt::SkipEmptyParts)) {
      patterns << pattern;
      if (pattern.toLower() != pattern) patterns << pattern.toLower();
    }
    entries << label + " (" + patterns.join(' ') + ")";
  }
  if (selected != nullptr && index >= 1 && index <= entries.size()) *selected = entries[index - 1];
  return entries.join(";;");
}

void QtPrompts::Tell(std::string_view text) {
  QMessageBox::information(parent_, kProgramTitle, ToQString(text));
}

Answer QtPrompts::Ask(std::string_view text, Buttons buttons) {
  QMessageBox::StandardButtons offered;
  switch (buttons) {
    case Buttons::kOk: offered = QMessageBox::Ok; break;
    case Buttons::kOkCancel: offered = QMessageBox::Ok | QMessageBox::Cancel; break;
    case Buttons::kYesNo: offered = QMessageBox::Yes | QMessageBox::No; break;
    case Buttons::kYesNoCancel: offered = QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel; break;
  }
  switch (QMessageBox::question(parent_, kProgramTitle, ToQString(text), offered)) {
    case QMessageBox::Yes: return Answer::kYes;
    case QMessageBox::No: return Answer::kNo;
    case QMessageBox::Ok: return Answer::kOk;
    default: return buttons == Buttons::kYesNo ? Answer::kNo : Answer::kCancel;
  }
}

std::string QtPrompts::Input(std::string_view title, std::string_view prompt, std::string_view default_text) {
  bool ok = false;
  const QString text = QInputDialog::getText(parent_, ToQString(title), ToQString(prompt), QLineEdit::Normal,
                                             ToQString(default_text), &ok);
  return ok ? text.toStdString() : std::string();
}

std::string QtPrompts::OpenFile(const FileDialogRequest& request) {
  QString selected;
  const QString filter = ToDialogFilter(request.filter, request.filter_index, &selected);
  return QFileDialog::getOpenFileName(parent_, ToQString(request.title), ToQString(request.start_directory),
                                      filter, &selected)
      .toStdString();
}

std::string QtPrompts::SaveFile(const FileDialogRequest& request) {
  QString selected;
  const QString filter = ToDialogFilter(request.filter, request.filter_index, &selected);
  QString start = ToQString(request.start_directory);
  if (!request.default_name.empty()) start += (start.isEmpty() ? "" : "/") + ToQString(request.default_name);
  const QFileDialog::Options options =
      request.asks_overwrite ? QFileDialog::DontConfirmOverwrite : QFileDialog::Options();
  return QFileDialog::getSaveFileName(parent_, ToQString(request.title), start, filter, &selected, options)
      .toStdString();
}

}  // namespace marlview
