// The list window's small dialogs: the column width, the display-only depth interval, and the
// preview of an export's text.
#pragma once

#include <QDialog>
#include <string>

#include "core/common/user_prompts.h"
#include "core/presentation/sounding_list.h"

class QComboBox;
class QLineEdit;
class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace marlview {

class Session;

// Offers the column widths; OK keeps the choice in "Column Widths".
class FrmColumnWidths : public QDialog {
  Q_OBJECT

 public:
  FrmColumnWidths(Session& session, UserPrompts& prompts, QWidget* parent = nullptr);

  QComboBox* cmbColumnWidth;
  QPushButton* cmdOK;
  QPushButton* cmdCancel;

 private:
  Session& session_;
  UserPrompts& prompts_;
};

// The depth stride of the rows shown and exported, in mm; the sounding's data stay as read.
class FrmNormalizeDepthIntervalDisplayOnly : public QDialog {
  Q_OBJECT

 public:
  FrmNormalizeDepthIntervalDisplayOnly(ListView& view, UserPrompts& prompts, QWidget* parent = nullptr);

  QLineEdit* txtInterval;
  QLabel* lblUnits;
  QPushButton* cmdOK;
  QPushButton* cmdCancel;

 private:
  ListView& view_;
  UserPrompts& prompts_;
};

// A read-only look at the text an export would write, before the user saves it.
class FrmExportPreview : public QDialog {
  Q_OBJECT

 public:
  FrmExportPreview(const std::string& title, const std::string& text, QWidget* parent = nullptr);

  QPlainTextEdit* txtPreview;
  QPushButton* cmdClose;
};

}  // namespace marlview
