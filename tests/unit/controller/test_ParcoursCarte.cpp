#include "controller/ParcoursCarte.h"
#include "tests/support/Support.h"

namespace {

using namespace ovelin;
using zenikcom::Axes3;

// A plunge at (1, 2) mm, 3 mm along X below, up again; 100 steps a millimetre, 50 in Z.
const std::vector<Axes3> Chemin{{0, 0, 0}, {100, 200, 0}, {100, 200, -25}, {400, 200, -25}, {400, 200, 0}};
constexpr std::array<double, 3> MmParPas{0.01, 0.01, 0.02};

TEST(ParcoursCsv, HoldsMillimetresAndSteps) {
  Svc.MarqueDecimale = ',';
  EXPECT_EQ(ParcoursCsv(Chemin, MmParPas),
            "X,Y,Z,PasX,PasY,PasZ\n"
            "0.0000,0.0000,0.0000,0,0,0\n"
            "1.0000,2.0000,0.0000,100,200,0\n"
            "1.0000,2.0000,-0.5000,100,200,-25\n"
            "4.0000,2.0000,-0.5000,400,200,-25\n"
            "4.0000,2.0000,0.0000,400,200,0\n");
}

TEST(ParcoursCsv, HasNoMinusBeforeANought) {
  EXPECT_EQ(ParcoursCsv({{-1, 0, 0}}, {0.00001, 1, 1}), "X,Y,Z,PasX,PasY,PasZ\n0.0000,0.0000,0.0000,-1,0,0\n");
}

TEST(ParcoursSvg, ShowsThePathFromAboveWithYUpward) {
  const std::string svg = ParcoursSvg(Chemin, MmParPas);
  EXPECT_NE(svg.find("viewBox=\"-2.0000 -4.0000 8.0000 6.0000\""), std::string::npos) << svg;
  EXPECT_NE(svg.find("width=\"8.0000mm\" height=\"6.0000mm\""), std::string::npos);
  EXPECT_NE(svg.find("class=\"rapide\" points=\"0.0000,0.0000 1.0000,-2.0000\""), std::string::npos);
  EXPECT_NE(svg.find("class=\"coupe\" points=\"1.0000,-2.0000 1.0000,-2.0000 4.0000,-2.0000\""), std::string::npos);
  EXPECT_NE(svg.find("class=\"rapide\" points=\"4.0000,-2.0000 4.0000,-2.0000\""), std::string::npos);
}

TEST(ParcoursSvg, OfAMachineThatHasNotMovedIsAnEmptySheet) {
  for (const std::vector<Axes3>& points : {std::vector<Axes3>{}, std::vector<Axes3>{{0, 0, 0}}}) {
    const std::string svg = ParcoursSvg(points, MmParPas);
    EXPECT_EQ(svg.find("polyline class"), std::string::npos);
    EXPECT_NE(svg.find("viewBox=\"-2.0000 -2.0000 4.0000 4.0000\""), std::string::npos) << svg;
  }
}

TEST(EcritParcours, GoesByTheExtension) {
  const std::string csv = essai::Dossier() + "/p.CSV", svg = essai::Dossier() + "/p.svg";
  EXPECT_EQ(EcritParcours(csv, Chemin, MmParPas), "");
  EXPECT_EQ(essai::LitFichierEssai(csv), ParcoursCsv(Chemin, MmParPas));
  EXPECT_EQ(EcritParcours(svg, Chemin, MmParPas), "");
  EXPECT_EQ(essai::LitFichierEssai(svg), ParcoursSvg(Chemin, MmParPas));
  EXPECT_NE(EcritParcours(essai::Dossier() + "/p.txt", Chemin, MmParPas), "");
  EXPECT_NE(EcritParcours(essai::Dossier() + "/absent/p.svg", Chemin, MmParPas), "") << "the system's reason";
}

}  // namespace
