#include <QApplication>
#include <QStyleFactory>

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

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  testing::UnitTest::GetInstance()->listeners().Append(new ThemeClair);
  return essai::Lance(argc, argv);
}
