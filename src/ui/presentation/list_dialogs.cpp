// The list window's small dialogs.
#include "ui/presentation/list_dialogs.h"

#include <QComboBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/session/session.h"
#include "ui/common/event_guard.h"
#include "ui/common/named.h"
#include "ui/common/qt_prompts.h"

namespace marlview {
namespace {

// Widths from a compact table of short numbers to room for long channel names.
constexpr int kNarrowestOffered = 8;
constexpr int kWidestOffered = 40;

}  // namespace

FrmColumnWidths::FrmColumnWidths(Session& session, UserPrompts& prompts, QWidget* parent)
    : QDialog(parent), session_(session), prompts_(prompts) {
  setObjectName("frmColumnWidths");
  setWindowTitle("COLUMN WIDTHS");
  auto* layout = new QGridLayout(this);
  layout->addWidget(new QLabel("COLUMN WIDTH (CHARACTERS)", this), 0, 0);
  cmbColumnWidth = Named(new QComboBox(this), "cmbColumnWidth");
  for (int width = kNarrowestOffered; width <= kWidestOffered; ++width) cmbColumnWidth->addItem(QString::number(width));
  // A width kept from an earlier choice outside the offered range stays selectable.
  const QString current = QString::number(session_.ColumnWidth);
  if (cmbColumnWidth->findText(current) < 0) cmbColumnWidth->addItem(current);
  cmbColumnWidth->setCurrentText(current);
  layout->addWidget(cmbColumnWidth, 0, 1);
  layout->addLayout(OkCancelRow(this, cmdOK, cmdCancel), 1, 0, 1, 2);
  connect(cmdOK, &QPushButton::clicked, this, [this] {
    bool changed = false;
    RunGuarded(prompts_, "cmdOK_Click", [&] {
      changed = ChangeColumnWidth(session_, prompts_, cmbColumnWidth->currentText().toStdString());
    });
    if (changed) accept();
  });
}

FrmNormalizeDepthIntervalDisplayOnly::FrmNormalizeDepthIntervalDisplayOnly(ListView& view, UserPrompts& prompts,
                                                                           QWidget* parent)
    : QDialog(parent), view_(view), prompts_(prompts) {
  setObjectName("frmNormalizeDepthIntervalDisplayOnly");
  setWindowTitle("DEPTH INTERVAL");
  auto* layout = new QGridLayout(this);
  layout->addWidget(new QLabel("DEPTH INTERVAL (0 FOR ALL ROWS)", this), 0, 0);
  txtInterval = Named(new QLineEdit(ToQString(ListIntervalEntry(view_)), this), "txtInterval");
  layout->addWidget(txtInterval, 0, 1);
  lblUnits = Named(new QLabel("(mm)", this), "lblUnits");
  layout->addWidget(lblUnits, 0, 2);
  layout->addLayout(OkCancelRow(this, cmdOK, cmdCancel), 1, 0, 1, 3);
  connect(cmdOK, &QPushButton::clicked, this, [this] {
    bool changed = false;
    RunGuarded(prompts_, "cmdOK_Click",
               [&] { changed = ChangeListInterval(view_, prompts_, txtInterval->text().toStdString()); });
    if (changed) accept();
  });
}

FrmExportPreview::FrmExportPreview(const std::string& title, const std::string& text, QWidget* parent)
    : QDialog(parent) {
  setObjectName("frmExportPreview");
  setWindowTitle(ToQString(title));
  auto* layout = new QVBoxLayout(this);
  txtPreview = Named(new QPlainTextEdit(this), "txtPreview");
  txtPreview->setReadOnly(true);
  txtPreview->setLineWrapMode(QPlainTextEdit::NoWrap);
  txtPreview->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  // The files end their lines CR LF; the preview shows lines, not carriage returns.
  QString shown = ToQString(text);
  shown.remove('\r');
  txtPreview->setPlainText(shown);
  layout->addWidget(txtPreview, 1);
  cmdClose = Named(new QPushButton("CLOSE", this), "cmdClose");
  layout->addWidget(cmdClose, 0, Qt::AlignRight);
  connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);
  resize(900, 600);
}

}  // namespace marlview
