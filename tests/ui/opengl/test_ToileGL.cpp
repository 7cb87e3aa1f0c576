// The picture of a program by OpenGL: the lines and colours of the painted one.
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "core/ReglagesCourants.h"
#include "gcode/SceneProgramme.h"
#include "gcode/ui/F_Gcode.h"
#include "gcode/ui/ImageProgramme.h"
#include "gcode/ui/ToileGL.h"
#include "image/ui/PeintScene.h"
#include "tests/ui/support/SupportUi.h"

namespace {

using namespace ovelin;
using namespace essai;

// Rapids, cuts, plunges, a box; slanted lines and long ones.
const std::string Motif =
    "F600\nG00 Z5\nG00 X10 Y10\nG01 Z-1\nX50 Y15\nY40\nX10 Y35\nX10 Y10\nG00 Z5\nX80 Y70\nG01 Z-3\nX95 Y5\nG00 "
    "Z5\n";

class ToileEssai : public testing::Test {
 protected:
  void SetUp() override {
    if (!ToileGL::Possible()) GTEST_SKIP() << "no screen with OpenGL: xvfb-run or the drivers' software is missing";
  }
  void Ouvre(F_Gcode& fenetre) {
    Montre(fenetre);
    fenetre.Ouvre(EcritFichierEssai("essai.nc", Motif));
    essai::Evenements();
  }
};

// Pixels of that colour, nearly, which have none like it in the other picture within a pixel; and how many there
// are.
struct Ecart {
  int seuls = 0, tous = 0;
};
bool Proche(QRgb a, QRgb b) {
  return std::abs(qRed(a) - qRed(b)) < 40 && std::abs(qGreen(a) - qGreen(b)) < 40 &&
         std::abs(qBlue(a) - qBlue(b)) < 40;
}
Ecart Compare(const QImage& a, const QImage& b, QRgb couleur) {
  Ecart e;
  for (int y = 1; y + 1 < a.height(); ++y) {
    for (int x = 1; x + 1 < a.width(); ++x) {
      if (!Proche(a.pixel(x, y), couleur)) continue;
      ++e.tous;
      bool pareil = false;
      for (int v = y - 1; v <= y + 1; ++v) {
        for (int u = x - 1; u <= x + 1; ++u) pareil = pareil || Proche(b.pixel(u, v), couleur);
      }
      if (!pareil) ++e.seuls;
    }
  }
  return e;
}

QRgb Rgb(std::int32_t c) { return qRgb(c & 255, (c >> 8) & 255, (c >> 16) & 255); }

// The same scene by both, unsmoothed as a large one is.
TEST_F(ToileEssai, ItsLinesAndColoursAreThoseOfThePaintedPicture) {
  constexpr int Largeur = 400, Hauteur = 300;
  std::string texte = Motif;
  for (int i = 0; i < 60'000; ++i) {
    texte += "X" + std::to_string(120 + i % 2 * 0.7) + " Y" + std::to_string(i * 0.001) + "\n";
  }
  const MesureProgramme m = MesureDe(Programme(texte), {}, true);
  for (const Theme theme : {Theme::Clair, Theme::Sombre}) {
    const Palette palette = ConstruitPalette(Regl, theme);
    OptionsProgramme options;
    options.largeur = Largeur;
    options.hauteur = Hauteur;
    options.outil = Lieu{70, 20, 0};
    Scene scene;
    ConstruitSceneProgramme(m, ProjectionDe(VueProgramme::Dessus, {}, m.bornes, Largeur, Hauteur), options, scene);
    ASSERT_FALSE(PeutLisser(scene, palette, 1));
    QWidget fenetre;
    ToileGL toile(&fenetre);
    toile.setGeometry(0, 0, Largeur, Hauteur);
    toile.Charge(scene, palette);
    Montre(fenetre, Largeur, Hauteur);
    ASSERT_TRUE(toile.isValid());
    EXPECT_EQ(toile.SegmentsDessines(), NombreSegments(scene));
    const QImage dessinee = toile.grabFramebuffer();
    QImage peinte(Largeur, Hauteur, QImage::Format_RGB32);
    peinte.fill(Rgb(palette.papier));
    {
      QPainter peintre(&peinte);
      PeintScene(peintre, scene, palette);
    }
    ASSERT_EQ(dessinee.size(), peinte.size());
    for (const Role role : {Role::Rapide, Role::Coupe, Role::Boite}) {
      const Ecart deToile = Compare(dessinee, peinte, Rgb(palette[role].couleur));
      const Ecart dePeinte = Compare(peinte, dessinee, Rgb(palette[role].couleur));
      EXPECT_GT(deToile.tous, 50);
      // Dots may stand a little apart from one another.
      EXPECT_LE(deToile.seuls, deToile.tous / 20) << static_cast<int>(role);
      EXPECT_LE(dePeinte.seuls, dePeinte.tous / 20) << static_cast<int>(role);
    }
    const Ecart papier = Compare(dessinee, peinte, Rgb(palette.papier));
    EXPECT_LE(papier.seuls, papier.tous / 1000);
  }
}

TEST_F(ToileEssai, TheWindowShowsItAndTakesTheMouseAllTheSame) {
  F_Gcode fenetre;
  Ouvre(fenetre);
  auto* image = Controle<ImageProgramme>(fenetre, "PB1");
  auto* toile = Controle<ToileGL>(fenetre, "ToileGL");
  ASSERT_TRUE(toile->isVisible());
  ASSERT_TRUE(toile->isValid());
  EXPECT_EQ(toile->size(), image->size());
  const QImage avant = toile->grabFramebuffer();
  EXPECT_EQ(toile->SegmentsDessines(), image->Segments());
  EXPECT_GT(image->Segments(), 12U);
  QTest::mousePress(image, Qt::LeftButton, {}, {100, 100});
  QTest::mouseMove(image, {60, 100});
  QTest::mouseMove(image, {20, 110});
  QTest::mouseRelease(image, Qt::LeftButton, {}, {20, 110});
  EXPECT_EQ(image->Vue(), VueProgramme::Espace);
  EXPECT_NE(image->EtatCamera().RotationY, 0);
  EXPECT_NE(toile->grabFramebuffer(), avant);
  Capture(fenetre, "F_Gcode-opengl");
  fenetre.close();
}

TEST_F(ToileEssai, WithoutAProgramTheHintIsPainted) {
  F_Gcode fenetre;
  Montre(fenetre);
  EXPECT_FALSE(Controle<ToileGL>(fenetre, "ToileGL")->isVisible());
  fenetre.close();
}

TEST_F(ToileEssai, WhereItsShadersAreRefusedThePictureIsPainted) {
  F_Gcode fenetre;
  Ouvre(fenetre);
  Q_EMIT Controle<ToileGL>(fenetre, "ToileGL")->Echoue();
  essai::Evenements();
  EXPECT_EQ(fenetre.findChild<ToileGL*>(), nullptr);
  auto* image = Controle<ImageProgramme>(fenetre, "PB1");
  const QImage peinte = image->grab().toImage();
  const QRgb coupe = Rgb(ConstruitPalette(Regl, Theme::Clair)[Role::Coupe].couleur);
  EXPECT_GT(Compare(peinte, peinte, coupe).tous, 50);
  fenetre.close();
}

}  // namespace
