// The procedures on the real library.
#include <cmath>

#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "tests/unit/toolpath/BiblioEssai.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Outils.h"
#include "toolpath/Module_Sequence.h"

using namespace ovelin;
using namespace essai;

namespace {

double Aire(const std::vector<PointTrace>& p) {
  double a = 0;
  for (std::size_t i = 1; i < p.size(); ++i) {
    a += (static_cast<double>(p[i - 1].X) * p[i].Y - static_cast<double>(p[i].X) * p[i - 1].Y) / 2;
  }
  return a;
}

void Cercle(const std::string& code, float cx, float cy, double r, int n, bool horaire) {
  std::vector<std::pair<float, float>> xy;
  for (int i = 0; i <= n; ++i) {
    const double a = (horaire ? -1 : 1) * 2 * Pi * (i % n) / n;
    xy.emplace_back(static_cast<float>(cx + r * std::cos(a)), static_cast<float>(cy + r * std::sin(a)));
  }
  AjouteSequence(code, xy);
}

}  // namespace

TEST(Bibliotheque, OffsetOfAClockwiseSquareLiesOutside) {
  AjouteCarre(" A", 10, 10, 20);
  RayonFraise = 3;
  ASSERT_TRUE(RecalculDecalages());
  ASSERT_EQ(TraceDecale.size(), 1U);
  const auto& p = TraceDecale[0].Points;
  EXPECT_TRUE(pathwerk::MemePlace(p.front(), p.back()));
  // A square of 26 with rounded corners at most; still clockwise.
  EXPECT_LT(Aire(p), -(20 * 20 + 4 * 20 * 3));
  EXPECT_GE(Aire(p), -(26.01 * 26.01));
}

TEST(Bibliotheque, Side3IsTheSameCutInTheOtherSense) {
  AjouteCarre(" A", 10, 10, 20);
  RayonFraise = 3;
  RecalculDecalages();
  const double aire = Aire(TraceDecale.at(0).Points);
  DecaleSelection(3);
  EXPECT_NEAR(Aire(TraceDecale.at(0).Points), -aire, 0.5);
}

TEST(Bibliotheque, ATooSmallHoleFailsAndLeavesAnEmptyEntry) {
  Cercle(" A", 0, 0, 2, 60, false);
  AjouteCarre(" B", 10, 10, 20);
  RayonFraise = 3;
  RecalculDecalages();
  EXPECT_EQ(CodesTraces(), " A B");
  EXPECT_TRUE(TraceDecale[0].Points.empty());
  CalculDecalage(Code2(" A"));
  EXPECT_EQ(CodesTraces(), " A");
}

TEST(Bibliotheque, APocketGivesItsPiecesAsConsecutiveEntries) {
  // Two rooms with a door that is too narrow for the tool: the fill is two pieces.
  AjouteSequence(" A", {{0, 0},
                        {20, 0},
                        {20, 8},
                        {30, 8},
                        {30, 0},
                        {50, 0},
                        {50, 20},
                        {30, 20},
                        {30, 12},
                        {20, 12},
                        {20, 20},
                        {0, 20},
                        {0, 0}});
  AjouteCarre(" B", 100, 10, 10);
  RayonFraise = 3;
  RecalculDecalages();
  Sequences[1].Selection = Faux;
  PocheSelection(true);
  ASSERT_EQ(TraceDecale.size(), 3U);
  for (std::size_t i = 0; i + 1 < TraceDecale.size(); ++i) EXPECT_EQ(TraceDecale[i].Seq, Code2(" A"));
  EXPECT_EQ(TraceDecale.back().Seq, Code2(" B"));
}

TEST(Bibliotheque, AMarkOpensANotchInTheOffset) {
  RayonFraise = 2;
  LargeurEncoche = 4;
  AjouteCarre(" A", 100, 100, 60);
  RecalculDecalages();
  ASSERT_TRUE(AjouteAttache(100, 130));
  const auto& p = TraceDecale.at(0).Points;
  std::size_t entree = 0, sortie = 0;
  for (std::size_t i = 0; i + 1 < p.size(); ++i) {
    if (p[i].Cde == CodePD && p[i + 1].Cde == CodePE) entree = i + 1;
    if (p[i].Cde != CodePD && p[i + 1].Cde == CodePD) sortie = i + 1;
  }
  // The bridge is as wide as the notch and the tool: 4 + 2 x 2 along the trace, 2 beside the edge.
  EXPECT_NEAR(p[entree].X, 98, 0.02);
  EXPECT_NEAR(std::abs(p[sortie].Y - p[entree].Y), 8, 0.02);
  EXPECT_NEAR((p[sortie].Y + p[entree].Y) / 2, 130, 0.02);
  ASSERT_TRUE(EnleveAttache(100, 130));
  EXPECT_EQ(NbPoints, 5);
  for (const auto& q : TraceDecale.at(0).Points) EXPECT_EQ(q.Cde, CodePD);
}

TEST(Bibliotheque, CleanUpKeepsMarksAndShape) {
  AjouteSequence(" A", {{0, 0}, {10, 0.001F}, {20, 0}, {30, 0.001F}, {40, 0}});
  TraceInitial[2].Cde = CodePC;
  EXPECT_TRUE(mnu_Nettoyage_Click(0.05F));
  EXPECT_EQ(Lieux(TraceInitial), (std::vector<std::pair<float, float>>{{0, 0}, {20, 0}, {40, 0}}));
  EXPECT_EQ(TraceInitial[1].Cde, CodePC);
}

TEST(Bibliotheque, SmoothingKeepsAClosedPathClosed) {
  AjouteCarre(" A", 0, 0, 10);
  AjouteSequence(" B", {{50, 0}, {60, 5}, {70, 0}});
  LisseSelection();
  const auto e = EtenduesSequences();
  ASSERT_EQ(e.size(), 2U);
  EXPECT_TRUE(EstFermee(e[0]));
  EXPECT_GE(e[0].nombre, 5U);
  EXPECT_GE(e[1].nombre, 3U);
  EXPECT_EQ(TraceInitial.size(), e[0].nombre + e[1].nombre);
}

TEST(Bibliotheque, ALetterWithACounterGivesTwoClosedPaths) {
  const std::vector<std::string> polices = pathwerk::ListePolices();
  if (polices.empty()) GTEST_SKIP() << "no font on this system";
  ASSERT_TRUE(GenereTexte("O", polices.front(), 0, 0));
  if (NbSequences() != 2) GTEST_SKIP() << "no letters in " << polices.front();
  for (const Etendue& e : EtenduesSequences()) EXPECT_TRUE(EstFermee(e));
  EXPECT_GT(Ymax - Ymin, 5);
  EXPECT_LT(Ymax - Ymin, 25);
}

TEST(Bibliotheque, AnUnknownFontIsRefused) {
  Attend("F_Representation", "lib126");
  EXPECT_FALSE(GenereTexte("O", "Police qui n'existe pas", 0, 0));
}

TEST(Bibliotheque, WhatIsExportedComesBack) {
  AjouteCarre(" A", 10, 10, 20);
  AjouteSequence(" B", {{50, 0}, {60.25F, 5}, {70, 0}});
  for (const char* nom : {"/a.dxf", "/a.dat"}) {
    TraceDecale.clear();
    Attend("F_Exporter", "lib002");
    ASSERT_TRUE(Exporte(Dossier() + nom, 0));
    std::vector<PointTrace> lus(1);
    float x0 = 0, x1 = 0, y0 = 0, y1 = 0;
    std::string message(pathwerk::LongueurMessage, ' ');
    ASSERT_EQ(pathwerk::LireFichier(lus, Dossier() + nom, x0, x1, y0, y1, message), 8) << nom << message;
    EXPECT_EQ(Lieux(lus), Lieux(TraceInitial)) << nom;
    EXPECT_NE(lus[4].Seq, lus[5].Seq);
  }
}

TEST(Bibliotheque, AnExportThatFailsTellsTheReason) {
  AjouteCarre(" A", 10, 10, 20);
  Attend("F_Representation", "lib125");
  EXPECT_FALSE(Exporte(Dossier() + "/rien/a.dxf", 0));
}
