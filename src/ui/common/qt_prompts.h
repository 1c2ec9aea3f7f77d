// The desktop program's prompts: message boxes, input boxes and file dialogs.
#pragma once

#include <QString>

#include "core/common/user_prompts.h"

class QWidget;

namespace marlview {

// Converts a classic filter ("Label (*.A)|*.A|...") to the dialog's form, matching extensions in
// either case: "Label (*.A *.a);;...".
QString ToDialogFilter(const std::string& filter, int index, QString* selected);

class QtPrompts : public UserPrompts {
 public:
  QtPrompts() = default;
  void SetParent(QWidget* parent) { parent_ = parent; }

  void Tell(std::string_view text) override;
  Answer Ask(std::string_view text, Buttons buttons) override;
  std::string Input(std::string_view title, std::string_view prompt, std::string_view default_text) override;
  std::string OpenFile(const FileDialogRequest& request) override;
  std::string SaveFile(const FileDialogRequest& request) override;

 private:
  QWidget* parent_ = nullptr;
};

QString ToQString(std::string_view text);

}  // namespace marlview
