// Parts of windows, by how they look.
#include <QImage>

#include "core/ui/Fabrique.h"
#include "core/ui/Theme.h"
#include "tests/ui/support/SupportUi.h"

namespace {

using namespace ovelin;

TEST(BoutonChoix, TheChosenOneCanBeToldFromTheOthersOnBothThemes) {
  for (const bool sombre : {false, true}) {
    essai::ThemeSombreEssai(sombre);
    const std::unique_ptr<QToolButton> bouton(BoutonChoix("Option_Decal_0", "Gauche"));
    const auto differe = [&] {
      bouton->setChecked(false);
      const QImage leve = bouton->grab().toImage();
      bouton->setChecked(true);
      const QImage choisi = bouton->grab().toImage();
      int points = 0;
      for (int x = 0; x < leve.width(); ++x) {
        for (int y = 0; y < leve.height(); ++y) {
          const double c = Contraste(DeCouleur(leve.pixelColor(x, y)), DeCouleur(choisi.pixelColor(x, y)));
          if (c >= ContrasteGraphique) ++points;
        }
      }
      return points;
    };
    bouton->resize(80, 40);
    EXPECT_GT(differe(), 100) << sombre;
    bouton->setEnabled(false);
    EXPECT_GT(differe(), 100) << sombre;
  }
  essai::ThemeSombreEssai(false);
}

}  // namespace
