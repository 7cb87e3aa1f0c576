#include <QApplication>
#include <QStyleFactory>
#include <cstdarg>

#include "tests/ui/support/SupportUi.h"

namespace {

class ThemeClair : public testing::EmptyTestEventListener {
  void OnTestStart(const testing::TestInfo&) override { essai::ThemeSombreEssai(false); }
  void OnTestEnd(const testing::TestInfo&) override {
    for (QWidget* fenetre : QApplication::topLevelWidgets()) {
      if (fenetre->isVisible()) ADD_FAILURE() << "left open: " << fenetre->objectName().toStdString();
    }
  }
};

}  // namespace

#ifdef __SANITIZE_THREAD__
// QProcess starts its child in this program's own memory. The thread sanitizer, whose `clone` would stand before
// the system's, takes it for one in a copy and looks at this program no more from then on.
extern "C" int __clone(int (*)(void*), void*, int, void*, ...);  // NOLINT: the system's name
extern "C" int clone(int (*fonction)(void*), void* pile, int drapeaux, void* argument, ...) {
  va_list suite;
  va_start(suite, argument);
  void* const parent = va_arg(suite, void*);
  void* const locales = va_arg(suite, void*);
  void* const enfant = va_arg(suite, void*);
  va_end(suite);
  return __clone(fonction, pile, drapeaux, argument, parent, locales, enfant);
}
#endif

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  testing::UnitTest::GetInstance()->listeners().Append(new ThemeClair);
  return essai::Lance(argc, argv);
}
