// The painter of windows and the painter of files show one list alike.
#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <algorithm>

#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "image/ImageDocument.h"
#include "image/PeintFichier.h"
#include "image/ui/PeintScene.h"
#include "tests/ui/image/Atelier.h"
#include "workspace/Module_Image.h"

namespace {

using namespace ovelin;

// How far a pixel of the one is from the nearest of the other's pixels around the same place; letters differ by
// their font.
int Ecart(const QImage& a, const QImage& b, int x, int y) {
  int meilleur = 255;
  for (int j = std::max(y - 1, 0); j <= std::min(y + 1, b.height() - 1); ++j) {
    for (int i = std::max(x - 1, 0); i <= std::min(x + 1, b.width() - 1); ++i) {
      const QRgb p = a.pixel(x, y);
      const QRgb q = b.pixel(i, j);
      meilleur = std::min(meilleur, std::max({std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)),
                                              std::abs(qBlue(p) - qBlue(q))}));
    }
  }
  return meilleur;
}

// The two squares, one of them selected and with a tab, by both painters.
void Compare(OptionsScene options) {
  essai::DeuxCarres();
  LargeurEncoche = 5;
  ASSERT_TRUE(AjouteAttache(0, 20));
  BasculeSelection(Code2("AA"));
  options.legende = false;
  for (const Theme theme : {Theme::Clair, Theme::Sombre}) {
    const CadreImage cadre = CadreDocument(Doc, options);
    Scene scene;
    ConstruitScene(Doc, cadre.vue, cadre.taille, options, scene);
    std::erase_if(scene.Primitives, [](const Primitive& p) { return p.genre == Genre::Texte; });
    const Palette palette = ConstruitPalette(Regl, theme);
    const QImage fichier = QImage::fromData(QByteArray::fromStdString(PeintPng(scene, palette, cadre.taille)))
                               .convertToFormat(QImage::Format_RGB32);
    QImage fenetre(fichier.size(), QImage::Format_RGB32);
    fenetre.fill(EnCouleur(palette.papier));
    QPainter peintre(&fenetre);
    PeintScene(peintre, scene, palette);
    peintre.end();
    ASSERT_GT(fichier.width(), 1000);
    int differents = 0;
    int encre = 0;
    for (int y = 0; y < fichier.height(); ++y) {
      for (int x = 0; x < fichier.width(); ++x) {
        encre += fenetre.pixelColor(x, y) != EnCouleur(palette.papier) ? 1 : 0;
        differents += Ecart(fenetre, fichier, x, y) > 130 || Ecart(fichier, fenetre, x, y) > 130 ? 1 : 0;
      }
    }
    EXPECT_GT(encre, 3000);
    EXPECT_LT(differents, encre / 200);
  }
}

TEST(DeuxPeintres, ShowADocumentAlikeInLightAndInDark) {
  OptionsScene options;
  options.numPoint = options.sequence = true;
  Compare(options);
}

TEST(DeuxPeintres, ShowTheQuietPictureAlikeInLightAndInDark) {
  Regl.DessinSobre = Regl.DessinSaignee = true;
  const OptionsScene options = OptionsDuDocument(true, true);
  ASSERT_TRUE(options.sobre && options.outil.rayon > 0);
  Compare(options);
}

}  // namespace
