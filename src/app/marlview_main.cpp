// The desktop program: one session, its start-up, then the main window.
#include <QApplication>

#include "core/session/session.h"
#include "core/shell/startup.h"
#include "ui/common/qt_prompts.h"
#include "ui/shell/form1.h"

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QApplication::setApplicationName("Marlview");
  const std::string program_directory = QCoreApplication::applicationDirPath().toStdString();
  marlview::Session session(
      {marlview::ResolveDataDirectory(), marlview::ResolveDefaultsDirectory(program_directory)});
  marlview::QtPrompts prompts;
  marlview::RunStartup(session, prompts);
  marlview::Form1 window(session, prompts);
  prompts.SetParent(&window);
  window.show();
  return app.exec();
}
