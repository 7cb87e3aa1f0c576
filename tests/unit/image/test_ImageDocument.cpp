// The picture of a document as a file: its frame, its bar, what it shows.
#include <gtest/gtest.h>

#include <limits>

#include "core/DocumentCourant.h"
#include "image/ImageDocument.h"
#include "tests/support/Support.h"

namespace {

using namespace ovelin;

OptionsScene Options() {
  OptionsScene o;
  o.legendeDessin = "dessin";
  o.legendeDecalage = "trajet";
  return o;
}

// The place of a drawing point in pixels of the file.
PointTrace Pixel(const CadreImage& cadre, float x, float y) {
  PointTrace p = VersEcran(cadre.vue, cadre.taille.hauteur, {x, y, CodePD, {}});
  p.X /= TwipsParPixel, p.Y /= TwipsParPixel;
  return p;
}

TEST(CadreDocument, TheTighterSideFillsThePictureWithinItsBorder) {
  essai::AjouteSequence(" A", {{0, 0}, {100, 50}});
  const CadreImage cadre = CadreDocument(Doc, Options());
  // 1500 / 100 = 15 pixels a millimetre, 1100 / 50 = 22.
  EXPECT_EQ(cadre.taille, (TailleImage{1600 * 15, 850 * 15}));
  EXPECT_NEAR(Pixel(cadre, 0, 0).X, 50, 0.01);
  EXPECT_NEAR(Pixel(cadre, 0, 0).Y, 800, 0.01);
  EXPECT_NEAR(Pixel(cadre, 100, 50).X, 1550, 0.01);
  EXPECT_NEAR(Pixel(cadre, 100, 50).Y, 50, 0.01);
}

TEST(CadreDocument, HoldsTheOriginOfTheMachine) {
  essai::AjouteSequence(" A", {{100, 10}, {200, 60}});
  const CadreImage cadre = CadreDocument(Doc, Options());
  EXPECT_NEAR(Pixel(cadre, 0, 0).X, 50, 0.01);
  EXPECT_NEAR(Pixel(cadre, 200, 0).X, 1550, 0.01);  // 7.5 pixels a millimetre
}

TEST(CadreDocument, HoldsTheToolPathWhereItIsShown) {
  essai::AjouteSequence(" A", {{0, 0}, {100, 50}});
  TraceDecale.push_back({Code2(" A"), {{0, 0, CodePD, {}}, {300, 0, CodePD, {}}}});
  EXPECT_NEAR(Pixel(CadreDocument(Doc, Options()), 300, 0).X, 1550, 0.01);
  OptionsScene sans = Options();
  sans.trajet = false;
  EXPECT_NEAR(Pixel(CadreDocument(Doc, sans), 100, 0).X, 1550, 0.01);
}

TEST(CadreDocument, ADrawingWithoutExtentOrOfPointsThatAreNoNumberHasAPicture) {
  constexpr float Infini = std::numeric_limits<float>::infinity();
  constexpr float Rien = std::numeric_limits<float>::quiet_NaN();
  for (const float place : {0.0F, Infini, -Infini, Rien}) {
    Doc = Document{};
    essai::AjouteSequence(" A", {{place, place}, {place, place}});
    const CadreImage cadre = CadreDocument(Doc, Options());
    EXPECT_GE(cadre.taille.largeur, 100 * 15);
    EXPECT_LE(cadre.taille.largeur, 1600 * 15);
    EXPECT_LE(cadre.taille.hauteur, 1200 * 15);
    EXPECT_FALSE(ImageDocument(Doc, Options(), Palette{}, FormatImage::Png).empty());
  }
}

TEST(AjouteEchelle, TheBarHasARoundLengthOfAtMostAQuarterOfThePicture) {
  // mm in 1500 pixels -> length of the bar: a quarter of 1600 pixels is 26.7, 53.3 and 133 mm.
  for (const auto& [mm, barre] : {std::pair{100.0F, 20.0F}, {200.0F, 50.0F}, {500.0F, 100.0F}}) {
    Doc = Document{};
    essai::AjouteSequence(" A", {{0, 0}, {mm, 1}});
    const CadreImage cadre = CadreDocument(Doc, Options());
    Scene scene;
    AjouteEchelle(cadre, scene);
    ASSERT_EQ(scene.Primitives.size(), 2U);
    const auto points = scene.PointsDe(scene.Primitives[0]);
    ASSERT_EQ(points.size(), 4U);
    EXPECT_NEAR((points[2].X - points[1].X) / TwipsParPixel, barre * 1500 / mm, 0.01);
    EXPECT_EQ(scene.Textes[0], std::to_string(static_cast<int>(barre)) + " mm");
    for (const Primitive& p : scene.Primitives) EXPECT_EQ(p.role, Role::Echelle);
  }
}

TEST(ImageDocument, BothFormatsAreMadeAndEachPartAddsToTheLines) {
  essai::AjouteCarre(" A", 0, 0, 50);
  TraceDecale.push_back({Code2(" A"), {{10, 10, CodePD, {}}, {40, 40, CodePD, {}}}});
  const Palette palette = ConstruitPalette(Reglages{.DessinSobre = false}, Theme::Clair);
  EXPECT_TRUE(ImageDocument(Doc, Options(), palette, FormatImage::Png).starts_with("\x89PNG"));
  const auto taille = [&](bool dessin, bool trajet) {
    OptionsScene o = Options();
    o.dessin = dessin;
    o.trajet = trajet;
    return ImageDocument(Doc, o, palette, FormatImage::Svg).size();
  };
  EXPECT_GT(taille(true, true), taille(true, false));
  EXPECT_GT(taille(true, true), taille(false, true));
}

TEST(ImageDocument, LinesInAFileOfLinesKeepWhatAThirdOfAPixelShows) {
  // Teeth of a fifth of a pixel along 1500 pixels: a screen shows a line, the file of lines more of it.
  std::vector<std::pair<float, float>> dents;
  for (int i = 0; i <= 6000; ++i) dents.emplace_back(static_cast<float>(i) / 60, i % 2 == 0 ? 0.0F : 0.03F);
  essai::AjouteSequence(" A", {{0, 0}, {100, 0}});
  TraceInitial.clear();
  for (const auto& [x, y] : dents) TraceInitial.push_back({x, y, CodePD, Code2(" A")});
  NbPoints = static_cast<std::int32_t>(TraceInitial.size());
  const std::string svg = ImageDocument(
      Doc, Options(), ConstruitPalette(Reglages{.DessinSobre = false}, Theme::Clair), FormatImage::Svg);
  std::size_t sommets = 0;
  for (std::size_t i = svg.find(" L "); i != std::string::npos; i = svg.find(" L ", i + 1)) ++sommets;
  EXPECT_GT(sommets, 3500U);  // 4500 thirds of a pixel, two points in each at the most
}

}  // namespace
