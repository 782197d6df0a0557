#include <QApplication>
#include <QDir>
#include <QFile>
#include <cstdio>

#include "estimator/estimator_window.h"
#include "model/version.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("ZU Estimator"));
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() != 2 || arguments[1].startsWith(QLatin1String("--"))) {
    const bool version = arguments.size() == 2 && arguments[1] == QLatin1String("--version");
    std::fprintf(version ? stdout : stderr, version ? "ZU Estimator %s\n" : "usage: ZU.exe FILE.zu\n",
                 model::kVersionText);
    return version ? 0 : 2;
  }
  estimator::EstimatorWindow window({.ParameterFile = QFile::encodeName(arguments[1]).toStdString(),
                                     .Folder = QFile::encodeName(QDir::currentPath()).toStdString(),
                                     .Unit = {}});
  window.show();
  QApplication::processEvents();  // so that the window appears before its contents are ready
  window.Fill();
  return QApplication::exec();
}
