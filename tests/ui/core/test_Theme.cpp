// Colours of the settings, colours that can be told apart, icons in the inks of the palette.
#include <QApplication>
#include <QDir>
#include <QIcon>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <cmath>

#include "core/Reglages.h"
#include "core/ui/Theme.h"
#include "tests/ui/support/SupportUi.h"

namespace {

using namespace ovelin;

// Contrast ratio of WCAG 2 from 8-bit values.
double Contraste(const QColor& a, const QColor& b) {
  const auto luminance = [](const QColor& c) {
    double somme = 0;
    const double poids[] = {0.2126, 0.7152, 0.0722};
    const int valeurs[] = {c.red(), c.green(), c.blue()};
    for (int i = 0; i < 3; ++i) {
      const double v = valeurs[i] / 255.0;
      somme += poids[i] * (v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4));
    }
    return somme;
  };
  const double la = luminance(a);
  const double lb = luminance(b);
  return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

TEST(Couleurs, AreRedPlusGreenPlusBlueThereAndBack) {
  EXPECT_EQ(EnCouleur(1 + 256 * 2 + 65536 * 3), QColor(1, 2, 3));
  EXPECT_EQ(DeCouleur(QColor(1, 2, 3)), 1 + 256 * 2 + 65536 * 3);
  for (const std::int32_t c : {0, 255, 65280, 16711680, 16777215, 123456}) EXPECT_EQ(DeCouleur(EnCouleur(c)), c);
  EXPECT_EQ(DeCouleur(QColor::fromHsv(0, 255, 255)), 255);
}

TEST(Couleurs, AValueBeyondThreeBytesGivesAColourAllTheSame) {
  EXPECT_EQ(EnCouleur(-1), QColor(255, 255, 255));
  EXPECT_EQ(EnCouleur(0x7F000001), QColor(1, 0, 0));
}

TEST(CouleurLisible, LeavesAColourThatCanBeToldFromItsGround) {
  EXPECT_EQ(CouleurLisible(QColor(0, 0, 255), Qt::white), QColor(0, 0, 255));
  EXPECT_EQ(CouleurLisible(QColor(255, 0, 0), QColor(30, 30, 30)), QColor(255, 0, 0));
}

TEST(CouleurLisible, ReachesThreeToOneOnEveryGround) {
  for (int fond = 0; fond <= 255; fond += 15) {
    for (int teinte = 0; teinte < 360; teinte += 45) {
      for (const int clarte : {0, 60, 128, 200, 255}) {
        const QColor sol(fond, fond, fond);
        const QColor lisible = CouleurLisible(QColor::fromHsl(teinte, 200, clarte), sol);
        EXPECT_GE(Contraste(lisible, sol), 2.95) << fond << " " << teinte << " " << clarte;
      }
    }
  }
}

TEST(CouleurLisible, KeepsTheHue) {
  const QColor bleu = CouleurLisible(QColor(0, 0, 100), QColor(36, 38, 41));
  EXPECT_NEAR(bleu.hslHue(), 240, 3);
  const QColor jaune = CouleurLisible(QColor(255, 255, 0), Qt::white);
  EXPECT_NEAR(jaune.hslHue(), 60, 3);
}

TEST(ThemeDe, FollowsThePalette) {
  QWidget w;
  EXPECT_EQ(ThemeDe(w), Theme::Clair);
  EXPECT_EQ(Papier(w), QColor(Qt::white));
  essai::ThemeSombreEssai(true);
  QWidget sombre;
  EXPECT_EQ(ThemeDe(sombre), Theme::Sombre);
  EXPECT_LT(Papier(sombre).lightness(), 60);
}

// ---- icons

QStringList NomsIcones() {
  QStringList noms;
  for (const QString& fichier : QDir(":/icones").entryList({"*.svg"})) noms += fichier.chopped(4);
  return noms;
}

// Share of the pixels that differ from the ground so that the eye sees them.
double Encre(const QImage& image, const QColor& fond) {
  QImage sur(image.size(), QImage::Format_RGB32);
  sur.fill(fond);
  QPainter p(&sur);
  QImage plate = image;
  plate.setDevicePixelRatio(1);
  p.drawImage(0, 0, plate);
  p.end();
  long vus = 0;
  for (int y = 0; y < sur.height(); ++y) {
    for (int x = 0; x < sur.width(); ++x) vus += Contraste(sur.pixelColor(x, y), fond) > 1.8 ? 1 : 0;
  }
  return static_cast<double>(vus) / (sur.width() * sur.height());
}

TEST(IconeProgramme, EveryPictureShowsAtEverySizeOnBothThemes) {
  IconeProgramme("OVELIN-2");  // the pictures are there from the first on
  const QStringList noms = NomsIcones();
  ASSERT_GT(noms.size(), 50);
  for (const bool sombre : {false, true}) {
    essai::ThemeSombreEssai(sombre);
    const QColor fond = QApplication::palette().color(QPalette::Window);
    for (const QString& nom : noms) {
      const QIcon icone = IconeProgramme(nom);
      ASSERT_FALSE(icone.isNull()) << nom.toStdString();
      for (const int cote : {16, 64}) {
        const QPixmap image = icone.pixmap(QSize(cote, cote));
        EXPECT_EQ(image.size(), QSize(cote, cote));
        EXPECT_GT(Encre(image.toImage(), fond), 0.03) << nom.toStdString() << " " << cote << " dark " << sombre;
      }
    }
  }
}

TEST(IconeProgramme, IsAsSharpAsTheScreenAtTwiceTheScale) {
  const QPixmap image = IconeProgramme("mnu_Ouvrir").pixmap(QSize(24, 24), 2.0);
  EXPECT_EQ(image.size(), QSize(48, 48));
  EXPECT_EQ(image.devicePixelRatio(), 2.0);
  const QImage grandie = IconeProgramme("mnu_Ouvrir").pixmap(QSize(24, 24), 1.0).toImage().scaled(48, 48);
  EXPECT_NE(image.toImage().convertToFormat(QImage::Format_ARGB32), grandie.convertToFormat(QImage::Format_ARGB32));
}

TEST(IconeProgramme, TakesTheTextColourOfThePaletteAlsoAfterAChange) {
  const QIcon icone = IconeProgramme("mnu_Ouvrir");
  const QImage claire = icone.pixmap(QSize(32, 32)).toImage();
  essai::ThemeSombreEssai(true);
  const QImage sombre = icone.pixmap(QSize(32, 32)).toImage();
  EXPECT_NE(claire, sombre);
  bool texte = false;
  for (int y = 0; y < 32; ++y) {
    for (int x = 0; x < 32; ++x) {
      texte = texte || sombre.pixelColor(x, y) == QApplication::palette().color(QPalette::WindowText);
    }
  }
  EXPECT_TRUE(texte);
}

TEST(IconeProgramme, IsGreyWhenDisabled) {
  const QImage image = IconeProgramme("mnu_Fraisage").pixmap(QSize(32, 32), QIcon::Disabled).toImage();
  for (int y = 0; y < 32; ++y) {
    for (int x = 0; x < 32; ++x) {
      const QColor c = image.pixelColor(x, y);
      if (c.alpha() < 255) continue;
      EXPECT_LT(std::max({c.red(), c.green(), c.blue()}) - std::min({c.red(), c.green(), c.blue()}), 30);
    }
  }
  EXPECT_GT(Encre(image, Qt::white), 0.03);
}

TEST(IconeProgramme, AnUnknownNameGivesNone) {
  EXPECT_TRUE(IconeProgramme("mnu_Inconnu").isNull());
  EXPECT_TRUE(IconeProgramme("").isNull());
}

// Figures of the definition of contrast: #767676 on white is the lightest grey of 4.5 to 1.
TEST(GrisLisible, IsTheFaintestThatCanBeRead) {
  EXPECT_EQ(GrisLisible(Qt::white), QColor(0x76, 0x76, 0x76));
  EXPECT_EQ(GrisLisible(Qt::black), QColor(0x75, 0x75, 0x75));
}

}  // namespace
