// What the window tests do alike: clicking option buttons and list rows as a user does, reading the
// scripted prompts' log, and answering a modal dialog once it shows.
#pragma once

#include <QApplication>
#include <QListWidget>
#include <QRadioButton>
#include <QStringList>
#include <QStyleOptionButton>
#include <QTimer>
#include <QtTest>
#include <functional>
#include <memory>

#include "core/common/user_prompts.h"
#include "support/test_support.h"
#include "ui/shell/form1.h"

namespace marlview::test {

// Each window test function starts from a fresh session and its main window, shown.
class MainWindowTest {
 protected:
  bool StartMainWindow() {
    t_ = std::make_unique<TestSession>();
    form_ = std::make_unique<Form1>(*t_->session, t_->prompts);
    form_->show();
    return QTest::qWaitForWindowExposed(form_.get());
  }
  void StopMainWindow() {
    form_.reset();
    t_.reset();
  }

  std::unique_ptr<TestSession> t_;
  std::unique_ptr<Form1> form_;
};

// A radio button takes a click on its circle or its caption only, not on the rest of its width.
inline void ClickOption(QRadioButton* option) {
  QStyleOptionButton style;
  style.initFrom(option);
  style.text = option->text();
  const QRect hit = option->style()->subElementRect(QStyle::SE_RadioButtonClickRect, &style, option);
  QTest::mouseClick(option, Qt::LeftButton, {}, hit.center());
}

inline void ClickRow(QListWidget* list, int row) {
  QListWidgetItem* item = list->item(row);
  list->scrollToItem(item);
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(item).center());
}

inline QStringList LogOf(const ScriptedPrompts& prompts) {
  QStringList log;
  for (const auto& line : prompts.Log()) log << QString::fromStdString(line);
  return log;
}

// Applies act to the next modal dialog of the given kind as soon as it shows; the test stops when
// no such dialog comes.
template <typename Dialog>
void AnswerModal(QObject* context, std::function<void(Dialog*)> act) {
  QTimer::singleShot(0, context, [act = std::move(act)] {
    auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr) qFatal("the dialog did not show");
    act(dialog);
  });
}

}  // namespace marlview::test
