#include <QApplication>
#include <QFile>
#include <QMessageBox>
#include <csignal>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "model/title.h"
#include "model/version.h"
#include "shell/accessible_view.h"
#include "shell/command_line.h"
#include "shell/display.h"
#include "shell/main_window.h"

namespace {

constexpr char kUsage[] =
    "Usage: yaxview [FILE.yax]\n"
    "Shows an integrated-circuit package in three dimensions.\n"
    "\n"
    "Without FILE the sample beside the program opens.\n"
    "\n"
    "  --help      show this text and end\n"
    "  --version   show the program's version and end\n";

/// --help and --version answer without a display.
bool AnswerAtOnce(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    const std::string_view argument = argv[i];
    if (argument == "--help") return std::fputs(kUsage, stdout) >= 0;
    if (argument == "--version") return std::printf("yaxview %s\n", model::kVersionText) >= 0;
  }
  return false;
}

/// The value of an option that the toolkit takes ("-display :1"), or null.
const char* ToolkitOption(int argc, char** argv, std::string_view name) {
  for (int i = 1; i + 1 < argc; ++i) {
    const std::string_view argument = argv[i];
    if (argument.starts_with('-') && argument.substr(argument.starts_with("--") ? 2 : 1) == name)
      return argv[i + 1];
  }
  return nullptr;
}

/// Nobody could close a box that no screen shows.
void ShowCritical(const std::string& title, const std::string& text) {
  if (qApp != nullptr && QGuiApplication::platformName() == "xcb") {
    QMessageBox::critical(nullptr, QString::fromStdString(title), QString::fromStdString(text));
  } else {
    std::fprintf(stderr, "%s: %s\n", title.c_str(), text.c_str());
  }
}

/// The backstop for a fault that a handler let out: nothing may pass through the toolkit.
class Application final : public QApplication {
 public:
  Application(int& argc, char** argv, shell::ProgramEnd& end) : QApplication(argc, argv), end_(end) {}

  bool notify(QObject* receiver, QEvent* event) override {
    try {
      return QApplication::notify(receiver, event);
    } catch (const model::Fault& fault) {
      end_.RunTimeError(fault);
      return false;
    }
  }

 private:
  shell::ProgramEnd& end_;
};

}  // namespace

int main(int argc, char** argv) {
  if (AnswerAtOnce(argc, argv)) return 0;
  // A file that may not grow any more fails to be written, which is told; the signal would end the program.
  std::signal(SIGXFSZ, SIG_IGN);
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "xcb");

  int status = 0;
  shell::ProgramEnd end;
  end.showCritical = ShowCritical;
  end.leave = [&status](int with) { status = with; };
  // The toolkit would abort where no display answers.
  const bool onX = ToolkitOption(argc, argv, "platform") == nullptr && qgetenv("QT_QPA_PLATFORM") == "xcb";
  const shell::DisplayConnection display(ToolkitOption(argc, argv, "display"));
  if (onX && !display.Answers()) {
    end.FatalError("Could not retrieve pixel format!");
    return status;
  }

  Application application(argc, argv, end);
  shell::InstallAccessibleViews();
  QCoreApplication::setApplicationName(model::kProgramTitle);
  const shell::StartUp startUp{QFile::encodeName(QCoreApplication::applicationDirPath()).toStdString(),
                               shell::CommandLineText({argv + 1, argv + argc})};
  shell::MainWindow window(startUp, end);
  window.Load();
  if (end.Ending()) return status;

  end.leave = [&status](int with) {
    status = with;
    QApplication::closeAllWindows();
    QCoreApplication::exit(with);
  };
  window.show();
  // Without a window manager nobody else gives it the keyboard.
  window.activateWindow();
  QApplication::exec();
  return status;
}
