#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "tests/unit/toolpath/BiblioEssai.h"
#include "toolpath/Module_Outils.h"
#include "toolpath/Module_Sequence.h"

using namespace ovelin;
using namespace essai;

namespace {

// An "O": two contours, without a kind of point, as an outline comes.
std::int32_t LettreO(std::vector<PointTrace>& p, const std::string&, const std::string&, std::int32_t,
                     std::int32_t) {
  p = Trace("x", {{0, 0}, {10, 0}, {10, 20}, {0, 0}});
  for (const auto& q : Trace("y", {{2, 2}, {5, 2}, {5, 9}, {2, 2}})) p.push_back(q);
  for (auto& q : p) q.Cde = Code2{};
  return static_cast<std::int32_t>(p.size());
}

}  // namespace

TEST(GenereTexte, StartsANewDrawing) {
  BiblioEssai biblio;
  Biblio.Texte = LettreO;
  ProfFraisage = -4.5;
  std::vector<bool> ouverts;
  Svc.DessinOuvert = [&](bool ouvert) { ouverts.push_back(ouvert); };
  std::string titre;
  Svc.TitreDessin = [&](const std::string& t) { titre = t; };
  EXPECT_TRUE(GenereTexte("O", "Sans", 0, 0));
  EXPECT_EQ(titre, "O");
  EXPECT_EQ(CodesDessin(), " A B");
  EXPECT_EQ(NbPoints, 8);
  EXPECT_EQ(Lieux(TraceInitial)[2], (std::pair<float, float>{10, 20}));
  ASSERT_EQ(Sequences.size(), 2U);
  EXPECT_EQ(Sequences[0], (SequenceInfo{Code2(" A"), Faux, -4.5, Vrai, 1, Vrai}));
  EXPECT_EQ(Sequences[1].Code, Code2(" B"));
  EXPECT_EQ(Xmax, 10);
  EXPECT_EQ(Ymax, 20);
  EXPECT_EQ(CodesTraces(), " A B");
  EXPECT_EQ(Modifie, Vrai);
  EXPECT_EQ(ouverts, std::vector<bool>{true});
  for (const auto& p : TraceInitial) EXPECT_EQ(p.Cde, CodePD);
}

TEST(GenereTexte, HandsItsArgumentsToTheLibrary) {
  BiblioEssai biblio;
  std::string recu;
  Biblio.Texte = [&](std::vector<PointTrace>& p, const std::string& texte, const std::string& police,
                     std::int32_t espace, std::int32_t style) {
    EXPECT_EQ(p.size(), 1U);
    recu = texte + "|" + police + "|" + std::to_string(espace) + "|" + std::to_string(style);
    return 0;
  };
  GenereTexte("Été", "Serif", -12, 3);
  EXPECT_EQ(recu, "Été|Serif|-12|3");
}

TEST(GenereTexte, AddsBehindTheGreatestCodeEachTime) {
  BiblioEssai biblio;
  Biblio.Texte = LettreO;
  AjouteCarre(" z", 50, 50, 5);
  AjouteCarre(" C", 70, 70, 5);
  int ouvertures = 0;
  Svc.DessinOuvert = [&](bool) { ++ouvertures; };
  Svc.TitreDessin = [&](const std::string&) { ++ouvertures; };
  EXPECT_TRUE(GenereTexte("O", "Sans", 0, 0));
  EXPECT_TRUE(GenereTexte("O", "Sans", 0, 0));
  EXPECT_EQ(CodesDessin(), " z CAAABACAD");
  EXPECT_EQ(Sequences.size(), 6U);
  EXPECT_EQ(NbPoints, 26);
  EXPECT_EQ(ouvertures, 0);
  std::vector<Drapeau> selection;
  for (const auto& s : Sequences) selection.push_back(s.Selection);
  EXPECT_EQ(selection, (std::vector<Drapeau>{Faux, Faux, Faux, Faux, Vrai, Vrai}));
}

TEST(GenereTexte, ShowsTheErrorOfTheLibraryAndChangesNothing) {
  BiblioEssai biblio;
  AjouteCarre(" A", 50, 50, 5);
  const Document avant = Doc;
  Biblio.Texte = [](std::vector<PointTrace>& p, const std::string&, const std::string&, std::int32_t,
                    std::int32_t) {
    p.clear();
    return -127;
  };
  Attend("F_Representation", "lib127");
  EXPECT_FALSE(GenereTexte("A", "Machin", 0, 0));
  EXPECT_EQ(Boites()[0].icone, Icone::Critique);
  EXPECT_THAT(Boites()[0].texte, testing::EndsWith(" (Machin)"));
  EXPECT_EQ(TraceInitial, avant.TraceInitial);
  EXPECT_EQ(Sequences, avant.Sequences);
  EXPECT_EQ(NbPoints, 5);
  EXPECT_EQ(Modifie, Faux);
}

TEST(GenereTexte, NamesTheFontForAProblemWithItsFile) {
  BiblioEssai biblio;
  Biblio.Texte = [](std::vector<PointTrace>&, const std::string&, const std::string&, std::int32_t, std::int32_t) {
    return -101;
  };
  Attend("F_Representation", "lib101");
  EXPECT_FALSE(GenereTexte("A", "Machin", 0, 0));
  EXPECT_THAT(Boites()[0].texte, testing::EndsWith(" (Machin)"));
  Biblio.Texte = [](std::vector<PointTrace>&, const std::string&, const std::string&, std::int32_t, std::int32_t) {
    return -55;
  };
  Attend("F_Representation", "lib55");
  EXPECT_FALSE(GenereTexte("A", "Machin", 0, 0));
  EXPECT_EQ(Boites()[1].texte.find("Machin"), std::string::npos);
}

TEST(GenereTexte, AddsNothingForATextWithoutOutlines) {
  BiblioEssai biblio;
  AjouteCarre(" A", 50, 50, 5);
  EXPECT_TRUE(GenereTexte("", "Sans", 0, 0));
  EXPECT_EQ(Sequences.size(), 1U);
  EXPECT_EQ(Sequences[0].Selection, Vrai);
  EXPECT_EQ(NbPoints, 5);
}

TEST(GenereTexte, CleansTheNewPathsAloneWithAHundredthUnlessChosen) {
  BiblioEssai biblio;
  Biblio.Texte = LettreO;
  AjouteCarre(" A", 50, 50, 5);
  std::vector<std::pair<Code2, float>> nettoyes;
  Biblio.NettoyageFichier = [&](std::vector<PointTrace>& p, float tolerance) {
    nettoyes.emplace_back(p.front().Seq, tolerance);
    p[2] = p[3];
    return 3;
  };
  GenereTexte("O", "Sans", 0, 0);
  EXPECT_EQ(nettoyes, (std::vector<std::pair<Code2, float>>{{Code2(" B"), 0.01F}, {Code2(" C"), 0.01F}}));
  EXPECT_EQ(NbPoints, 11);
  nettoyes.clear();
  Regl.Resolution = 0.25F;
  GenereTexte("O", "Sans", 0, 0);
  EXPECT_EQ(nettoyes.at(0).second, 0.25F);
}

TEST(GenereTexte, StartsAnewBehindADeletionOfEverything) {
  BiblioEssai biblio;
  Biblio.Texte = LettreO;
  AjouteCarre(" A", 50, 50, 5);
  SupprimeSelection();
  EXPECT_TRUE(GenereTexte("O", "Sans", 0, 0));
  EXPECT_EQ(CodesDessin(), " A B");
  EXPECT_EQ(NbPoints, 8);
  EXPECT_EQ(Sequences.size(), 2U);
}

TEST(GenereTexte, KeepsTheDrawingBehindAProjectRefusedForWantOfPoints) {
  BiblioEssai biblio;
  Biblio.Texte = LettreO;
  AjouteCarre(" A", 0, 0, 10);
  NbPoints = 0;
  EXPECT_TRUE(GenereTexte("O", "Sans", 0, 0));
  EXPECT_EQ(CodesDessin(), " A B C");
  EXPECT_EQ(NbPoints, static_cast<std::int32_t>(TraceInitial.size()));
}

TEST(GenereTexte, StartsAnewBehindAFailedReading) {
  BiblioEssai biblio;
  Biblio.Texte = LettreO;
  TraceInitial = Trace(" Q", {{1, 1}});
  NbPoints = -109;
  EXPECT_TRUE(GenereTexte("O", "Sans", 0, 0));
  EXPECT_EQ(CodesDessin(), " A B");
}

TEST(GenereTexte, FindsFreeCodesWhereTheCountLeavesThePrintableCharacters) {
  BiblioEssai biblio;
  Biblio.Texte = LettreO;
  AjouteSequence(" A", {{0, 0}, {1, 1}});
  AjouteSequence("~~", {{0, 0}, {1, 1}});
  EXPECT_TRUE(GenereTexte("O", "Sans", 0, 0));
  EXPECT_EQ(CodesDessin(), " A~~ B C");
}

TEST(GenereTexte, RefusesMorePathsThanTwoCharactersCanName) {
  BiblioEssai biblio;
  Biblio.Texte = [](std::vector<PointTrace>& p, const std::string&, const std::string&, std::int32_t,
                    std::int32_t) {
    p.clear();
    for (int i = 0; i < 20000; ++i) {
      const Code2 seq(i % 2 == 0 ? "x" : "y");
      p.push_back({0, 0, Code2{}, seq});
      p.push_back({1, 1, Code2{}, seq});
    }
    return static_cast<std::int32_t>(p.size());
  };
  AjouteCarre(" A", 50, 50, 5);
  const Document avant = Doc;
  Attend("F_Representation", "lib112");
  EXPECT_FALSE(GenereTexte("O", "Sans", 0, 0));
  EXPECT_EQ(TraceInitial, avant.TraceInitial);
  EXPECT_EQ(Sequences, avant.Sequences);
}

TEST(GenereTexte, TakesNoMorePointsThanThereAre) {
  BiblioEssai biblio;
  Biblio.Texte = [](std::vector<PointTrace>& p, const std::string&, const std::string&, std::int32_t,
                    std::int32_t) {
    p = Trace("x", {{0, 0}, {1, 1}});
    return 1000;
  };
  EXPECT_TRUE(GenereTexte("O", "Sans", 0, 0));
  EXPECT_EQ(NbPoints, 2);
}

// The letter of the script lies at (0, 0) to (10, 20); one with a descender reaches below.
TEST(GenereTexte, BeginsADrawingWithAMarginBelowItsLowestPoint) {
  BiblioEssai biblio;
  Biblio.Texte = [](std::vector<PointTrace>& p, const std::string&, const std::string&, std::int32_t,
                    std::int32_t) {
    p = Trace("x", {{1, -4}, {9, -4}, {9, 12}, {1, -4}});
    return 4;
  };
  PoseTexte pose;
  pose.cadre = true;
  EXPECT_TRUE(GenereTexte("g", "Sans", 0, 0, pose));
  EXPECT_EQ(Lieux(TraceInitial), (std::vector<std::pair<float, float>>{{5, 5}, {13, 5}, {13, 21}, {5, 5}}));
}

TEST(GenereTexte, JoinsADrawingAtTheMarkedPosition) {
  BiblioEssai biblio;
  Biblio.Texte = LettreO;
  AjouteCarre(" A", 50, 50, 5);
  NbPoints = 5;
  OrigineX = 30;
  OrigineY = -2;
  PoseTexte pose;
  pose.cadre = true;
  EXPECT_TRUE(GenereTexte("O", "Sans", 0, 0, pose));
  EXPECT_EQ(Lieux(TraceInitial)[5], (std::pair<float, float>{30, -2})) << "the start of the base line";
}

TEST(GenereTexte, AsksTheLibraryForAnotherHeight) {
  BiblioEssai biblio;
  double recue = 0;
  Biblio.TexteHaut = [&](std::vector<PointTrace>& p, const std::string&, const std::string&, std::int32_t,
                         std::int32_t, double hauteur) {
    recue = hauteur;
    p.clear();
    return 0;
  };
  PoseTexte pose;
  pose.hauteur = 35.5;
  EXPECT_TRUE(GenereTexte("O", "Sans", 0, 0, pose));
  EXPECT_EQ(recue, 35.5);
}
