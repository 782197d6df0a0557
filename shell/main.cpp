#include <QApplication>
#include <QFile>
#include <QMessageBox>
#include <csignal>
#include <cstdio>
#include <string>
#include <vector>

#include "shell/command_line.h"
#include "shell/title.h"
#include "shell/ui/accessible_view.h"
#include "shell/ui/display.h"
#include "shell/ui/main_window.h"

namespace {

bool HasDisplay() {
  const QString platform = QGuiApplication::platformName();
  return platform != "offscreen" && !platform.startsWith("minimal");
}

/// Without a display a message box would block forever; write to stderr.
void ShowCritical(const std::string& title, const std::string& text) {
  if (HasDisplay()) {
    QMessageBox::critical(nullptr, QString::fromStdString(title), QString::fromStdString(text));
  } else {
    std::fprintf(stderr, "%s: %s\n", title.c_str(), text.c_str());
  }
}

/// Chooses the platform that Qt uses: X, unless the user has chosen another. Returns false when that cannot
/// show the view; the platform is then one that can show a message.
bool ChoosePlatform(const std::vector<std::string>& arguments, const shell::ui::DisplayConnection& display) {
  constexpr char kPlatform[] = "QT_QPA_PLATFORM";
  if (qEnvironmentVariableIsEmpty(kPlatform)) qputenv(kPlatform, "xcb");
  // Qt aborts when it cannot connect to a display, so try first.
  const bool onX = shell::QtOption(arguments, "platform") == nullptr && qgetenv(kPlatform) == "xcb";
  if (!onX || display.Answers()) return true;
  // Wayland without X cannot show the view, but it can show the message. Without Qt's Wayland plugin, stderr
  // gets it.
  qputenv(kPlatform, qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ? "offscreen" : "wayland;offscreen");
  return false;
}

/// Catches faults that escape a handler: Qt does not support exceptions in its event loop.
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
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  if (const std::string answer = shell::AnswerAtOnce(arguments); !answer.empty())
    return std::fputs(answer.c_str(), stdout) >= 0 ? 0 : 1;
  // Ignore SIGXFSZ: the file-size limit should be a reported write error, not a kill.
  std::signal(SIGXFSZ, SIG_IGN);

  int status = 0;
  shell::ProgramEnd end;
  end.ShowCritical = ShowCritical;
  end.Leave = [&status](int with) { status = with; };
  const shell::ui::DisplayConnection display(shell::QtOption(arguments, "display"));
  const bool drawable = ChoosePlatform(arguments, display);
  Application application(argc, argv, end);
  if (!drawable) {
    end.FatalError("Could not retrieve pixel format!");
    return status;
  }
  shell::ui::InstallAccessibleViews();
  QCoreApplication::setApplicationName(shell::kProgramTitle);
  // Qt has removed its own options from argv.
  const shell::StartUp startUp{QFile::encodeName(QCoreApplication::applicationDirPath()).toStdString(),
                               shell::CommandLineText({argv + 1, argv + argc})};
  shell::ui::MainWindow window(startUp, end);
  window.Load();
  if (end.Ending()) return status;

  end.Leave = [&status](int with) {
    status = with;
    QApplication::closeAllWindows();
    QCoreApplication::exit(with);
  };
  window.show();
  // Without a window manager the window does not get the keyboard focus by itself.
  window.activateWindow();
  QApplication::exec();
  return status;
}
