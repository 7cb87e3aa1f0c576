// The procedures of the milling window: speeds, figures of the plan, the file.
#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/Fichiers.h"
#include "core/PlanCourant.h"
#include "core/ReglagesCourants.h"
#include "machine/TableCourante.h"
#include "run/Module_Fraisage.h"
#include "tests/unit/run/PlanEssai.h"

namespace essai {
namespace {

Deplacement Rang(float x, float y, float z, float v = 1) {
  Deplacement d;
  d.X = x;
  d.Y = y;
  d.Z = z;
  d.Vitesse = v;
  return d;
}

void Travail() {
  ReglagesPlan();
  AjouteTrajet(" A", -5, Carre);
}

TEST(FiguresDe, SumsThreeAxesFromTheOriginWhateverTheFirstRowIs) {
  const std::vector<Deplacement> lignes{Rang(50, 50, 50, 0), Rang(3, 4, 0, 2), Rang(3, 4, -2, 1)};
  const FiguresPlan f = FiguresDe(lignes);
  EXPECT_DOUBLE_EQ(f.longueur, 7);           // 5 + 2
  EXPECT_DOUBLE_EQ(f.temps, 5.0 / 2 + 2.0);  // each row at its own speed
  EXPECT_EQ(f.lignes, 2);
  EXPECT_EQ(f.fond, -2);
}

TEST(FiguresDe, CountsARowWithoutASpeedByItsLengthAlone) {
  const FiguresPlan f = FiguresDe(std::vector<Deplacement>{Rang(0, 0, 0), Rang(10, 0, 5, 0)});
  EXPECT_DOUBLE_EQ(f.longueur, 10 * std::sqrt(1.25));
  EXPECT_EQ(f.temps, 0);
}

TEST(FiguresDe, BoundsHoldWhatIsCutAndNotTheRapids) {
  const FiguresPlan f = FiguresDe(std::vector<Deplacement>{Rang(0, 0, 0), Rang(0, 0, 5), Rang(20, 30, 5),
                                                           Rang(20, 30, 0), Rang(20, 30, -1), Rang(40, 35, -1),
                                                           Rang(40, 35, 5), Rang(0, 0, 5), Rang(0, 0, 0)});
  EXPECT_TRUE(f.coupe);
  EXPECT_EQ(f.xmin, 20);
  EXPECT_EQ(f.xmax, 40);
  EXPECT_EQ(f.ymin, 30);
  EXPECT_EQ(f.ymax, 35);
}

TEST(FiguresDe, BoundsHoldTheWaysOfAPenAtTheSurface) {
  const FiguresPlan f = FiguresDe(
      std::vector<Deplacement>{Rang(0, 0, 0), Rang(5, 5, 2), Rang(5, 5, 0), Rang(9, 5, 0), Rang(9, 5, 2)});
  EXPECT_EQ(f.xmin, 5);
  EXPECT_EQ(f.xmax, 9);
}

TEST(FiguresDe, HasNoBoundsWithoutACut) {
  EXPECT_FALSE(
      FiguresDe(std::vector<Deplacement>{Rang(0, 0, 0), Rang(0, 0, 2), Rang(5, 5, 2), Rang(5, 5, 0)}).coupe);
  EXPECT_EQ(FiguresDe({}).lignes, 0);
}

TEST(PlanifiePourFenetre, TellsAnEmptyDocument) {
  ReglagesPlan();
  const ResumePlan r = PlanifiePourFenetre();
  EXPECT_TRUE(r.vide);
  EXPECT_FALSE(r.refus);
  EXPECT_EQ(r.figures.lignes, 0);
}

TEST(PlanifiePourFenetre, TellsARefusalWithoutABox) {
  Travail();
  ProfPasse = 0;
  const ResumePlan r = PlanifiePourFenetre();
  ASSERT_TRUE(r.refus);
  EXPECT_EQ(r.refus->cle.Section(), "erreurs");
  EXPECT_EQ(r.refus->cle.Cle(), "95");
  EXPECT_TRUE(Boites().empty());
  EXPECT_EQ(r.figures.lignes, 0);
}

TEST(PlanifiePourFenetre, CountsPathsAndThePassesOfTheDeepest) {
  Travail();                      // 5 mm in passes of 2
  AjouteTrajet(" A", -5, Carre);  // a ring of the same path
  AjouteTrajet(" B", -2, Ouverte);
  AjouteTrajet(" C", -50, Ouverte, false);  // not milled
  const ResumePlan r = PlanifiePourFenetre();
  EXPECT_EQ(r.sequences, 2);
  EXPECT_EQ(r.passes, 3);
  EXPECT_EQ(r.figures.fond, -5);
  EXPECT_EQ(r.figures.lignes, NbDeplacements - 1);
}

TEST(PlanifiePourFenetre, TellsOfACutBelowTheOriginOrBeyondTheTravel) {
  Travail();
  EXPECT_FALSE(PlanifiePourFenetre().horsCourse);
  AjouteTrajet(" B", -2, {{-0.5F, 5}, {10, 5}});
  EXPECT_TRUE(PlanifiePourFenetre().horsCourse);
  Sequences.back().Fraiser = Faux;
  EXPECT_FALSE(PlanifiePourFenetre().horsCourse);
  CourseX = 8;
  EXPECT_TRUE(PlanifiePourFenetre().horsCourse);
}

TEST(PlanifiePourFenetre, CountsThePathsWhereTheToolFindsNoRoom) {
  Travail();
  AjouteTrajet(" B", -2, {});
  AjouteTrajet(" C", -2, {}, false);  // not milled anyway
  for (const char* code : {" A", " B", " C", " B"}) TraceInitial.push_back({0, 0, CodePD, Code2(code)});
  NbPoints = 4;
  const ResumePlan r = PlanifiePourFenetre();
  EXPECT_EQ(r.sequences, 1);
  EXPECT_EQ(r.sansTrajet, std::vector{Code2(" B")});
}

TEST(PlanifiePourFenetre, AnIslandMissesNoPath) {
  Travail();
  AjouteTrajet(" B", -2, {});
  AjouteTrajet(" C", -2, {});
  for (const char* code : {" A", " B", " C"}) TraceInitial.push_back({0, 0, CodePD, Code2(code)});
  NbPoints = 3;
  Complements.Pose(Code2(" B"), {true, "", std::nullopt});
  EXPECT_EQ(PlanifiePourFenetre().sansTrajet, std::vector{Code2(" C")});
}

TEST(PlanifiePourFenetre, CountsThePathsThatAreMissingFromTheTracesAltogether) {
  Travail();
  for (const char* code : {" A", " D", " E"}) TraceInitial.push_back({0, 0, CodePD, Code2(code)});
  NbPoints = 3;
  EXPECT_EQ(PlanifiePourFenetre().sansTrajet, (std::vector{Code2(" D"), Code2(" E")}));
}

TEST(TexteSansTrajet, NamesTheFirstTwelveAndCountsAll) {
  EXPECT_EQ(TexteSansTrajet({Code2(" A"), Code2("AB")}), "2 (A, AB)");
  std::vector<Code2> codes;
  for (char c = 'A'; c < 'A' + 13; ++c) codes.emplace_back(std::string(" ") + c);
  EXPECT_EQ(TexteSansTrajet(codes), "13 (A, B, C, D, E, F, G, H, I, J, K, L ...)");
}

TEST(PlanifiePourFenetre, GivesTheSumsOfTheFileThatIsWritten) {
  Travail();
  AjouteTrajet(" B", -2, Ouverte);
  const ResumePlan r = PlanifiePourFenetre();
  EcritureNC ecriture;
  ASSERT_TRUE(EcritGCode(Dossier() + "/a.nc", ecriture));
  EXPECT_EQ(r.figures.longueur, ecriture.LongueurNC);
  EXPECT_EQ(r.figures.temps, ecriture.TempsNC);
  EXPECT_EQ(r.figures.lignes, ecriture.deplacements);
}

TEST(PlanifiePourFenetre, LeavesTheResolutionsOfTheBoardAlone) {
  Travail();
  PlanifiePourFenetre();
  EXPECT_EQ(CdeZENIK->MmParPasX(), 0.01);
}

TEST(PlanifiePourFenetre, GivesTheSpeedsThatTheAxesAllow) {
  ReglagesPlan();
  const std::string section = SectionTable(TableDefaut);
  for (const auto& [cle, valeur] :
       {std::pair{"TB_SAV_12", "4"}, {"TB_SAV_13", "3"}, {"TB_SAV_15", "50"}, {"TB_SAV_16", "20"}}) {
    EcrireCleSection(section, cle, valeur);
  }
  AjouteTrajet(" A", -1, {{0, 0}, {10, 0}, {10, 10}, {0, 0}});
  const ResumePlan r = PlanifiePourFenetre();
  EXPECT_NEAR(r.VSansRampe, 3, 1e-4);  // the way along Y
  EXPECT_NEAR(r.VMax, 20, 1e-4);
}

TEST(ChargeFraisage, TurnsADepthOfPassOfZeroIntoOneMillimetre) {
  ProfPasse = 0;
  ChargeFraisage();
  EXPECT_EQ(ProfPasse, -1);
  ProfPasse = -0.4;
  ChargeFraisage();
  EXPECT_EQ(ProfPasse, -0.4);
}

TEST(EntreVit_Mat_H, KeepsTheSpeedWritesItAndMarksTheProject) {
  ReglagesPlan();
  EXPECT_EQ(essai::CleDe(EntreVit_Mat_H("8,5")), "");
  EXPECT_EQ(Vitesse_Mat_H, 8.5);
  EXPECT_EQ(LireNombre("Vitesse_Mat_H", 0), 8.5);
  EXPECT_EQ(Modifie, Vrai);
  EXPECT_EQ(Vitesse_Mat_V, 1);
}

TEST(EntreVit_Mat_V, KeepsTheSpeedDownward) {
  ReglagesPlan();
  EXPECT_EQ(essai::CleDe(EntreVit_Mat_V("0.75")), "");
  EXPECT_EQ(Vitesse_Mat_V, 0.75);
  EXPECT_EQ(LireNombre("Vitesse_Mat_V", 0), 0.75);
  EXPECT_EQ(Vitesse_Mat_H, 3);
}

TEST(EntreVit_Mat_H, LeavesTheProjectUnmarkedWhenNothingChanges) {
  ReglagesPlan();
  EXPECT_EQ(essai::CleDe(EntreVit_Mat_H("3")), "");
  EXPECT_EQ(Modifie, Faux);
}

TEST(EntreVit_Mat_H, RefusesWhatIsNoSpeedAndChangesNothing) {
  ReglagesPlan();
  for (const char* texte : {"", "abc", "1..2", "-"})
    EXPECT_EQ(essai::CleDe(EntreVit_Mat_H(texte)), "lib020") << texte;
  for (const char* texte : {"0", "-1", "2000000000"})
    EXPECT_EQ(essai::CleDe(EntreVit_Mat_H(texte)), "lib021") << texte;
  EXPECT_EQ(Vitesse_Mat_H, 3);
  EXPECT_EQ(Modifie, Faux);
}

TEST(PasVit_Mat_H, AddsTheFourSteps) {
  ReglagesPlan();
  EXPECT_EQ(PasVit_Mat_H("5", 1), "4.0");
  EXPECT_EQ(PasVit_Mat_H("5", 2), "4.9");
  EXPECT_EQ(PasVit_Mat_H("5", 3), "5.1");
  EXPECT_EQ(PasVit_Mat_H("5", 4), "6.0");
  Svc.MarqueDecimale = ',';
  EXPECT_EQ(PasVit_Mat_H("5,25", 4), "6,3");
}

TEST(PasVit_Mat_H, StaysBetweenATenthAndTheSlowerAxis) {
  ReglagesPlan();  // axes of 50 and 20
  EXPECT_EQ(PasVit_Mat_H("19.95", 4), "20.0");
  EXPECT_EQ(PasVit_Mat_H("40", 2), "20.0");
  EXPECT_EQ(PasVit_Mat_H("0.1", 2), "0.1");
  EXPECT_EQ(PasVit_Mat_H("0.5", 1), "0.1");
}

TEST(PasVit_Mat_H, StartsFromTheSpeedInForceWhenTheTextIsNone) {
  ReglagesPlan();
  EXPECT_EQ(PasVit_Mat_H("", 4), "4.0");
}

TEST(GenereGCode, WritesWithTheSpeedsOfTheFieldsAndKeepsThem) {
  Travail();
  const std::string fichier = Dossier() + "/a.nc";
  AttendFichier("Btn_Gener_GCODE", fichier);
  EcritureNC r;
  ASSERT_TRUE(GenereGCode("7", "1.5", r));
  EXPECT_EQ(Vitesse_Mat_H, 7);
  EXPECT_EQ(Vitesse_Mat_V, 1.5);
  EXPECT_THAT(LitFichierEssai(fichier), testing::HasSubstr("\nF420.00000\n"));
  EXPECT_EQ(NomFichierNC, fichier);
}

TEST(GenereGCode, RefusesASpeedOfZeroInItsFieldAndKeepsTheOneInForce) {
  Travail();
  Attend("F_Fraisage", "lib041");
  EcritureNC r;
  EXPECT_FALSE(GenereGCode("0", "2", r));
  EXPECT_EQ(Vitesse_Mat_H, 3);
  EXPECT_EQ(Vitesse_Mat_V, 2);  // that one was good
  EXPECT_EQ(LireNombre("Vitesse_Mat_H", 0), 3);
}

TEST(GenereGCode, ProposesTheNameOfTheDrawingInItsFolder) {
  Travail();
  FichierCourant = "/un/dossier/piece.v2.dxf";
  std::string propose;
  Svc.ChoisitFichier = [&](const DialogueFichier& d) {
    propose = d.propose;
    return std::string();
  };
  EcritureNC r;
  EXPECT_FALSE(GenereGCode("3", "1", r));
  EXPECT_EQ(propose, "/un/dossier/piece.v2.nc");
  EXPECT_EQ(NomFichierNC, "");  // nobody has chosen it

  FichierCourant = "/un/dossier/autre.dxf";
  EXPECT_FALSE(GenereGCode("3", "1", r));
  EXPECT_EQ(propose, "/un/dossier/autre.nc");
}

TEST(GenereGCode, ProposesTheNameUsedLast) {
  Travail();
  FichierCourant = "/un/dossier/piece.dxf";
  NomFichierNC = "/ailleurs/mien.nc";
  std::string propose;
  Svc.ChoisitFichier = [&](const DialogueFichier& d) {
    propose = d.propose;
    return std::string();
  };
  EcritureNC r;
  EXPECT_FALSE(GenereGCode("3", "1", r));
  EXPECT_EQ(propose, "/ailleurs/mien.nc");
  EXPECT_EQ(NomFichierNC, "/ailleurs/mien.nc");
}

TEST(GenereGCode, ProposesNothingWithoutADrawingOfAFile) {
  Travail();
  std::string propose = "?";
  Svc.ChoisitFichier = [&](const DialogueFichier& d) {
    propose = d.propose;
    return std::string();
  };
  EcritureNC r;
  EXPECT_FALSE(GenereGCode("3", "1", r));
  EXPECT_EQ(propose, "");
}

TEST(FermeFraisage, KeepsThePlaceInTwipsWithTheUserAndNotInTheProject) {
  const std::string projet = EcritFichierEssai("p.OVL", "$$PCPoche=20\r\n");
  FichierCourant = FichierProjet = projet;
  EXPECT_FALSE(LitPlaceFraisage());
  FermeFraisage(120, -4);
  EXPECT_THAT(LitFichierEssai(projet), testing::Not(testing::HasSubstr("_Left")));
  EXPECT_EQ(FichierProjet, projet);
  EXPECT_EQ(LireCleIni("F_Fraisage_Left", ""), "1800");
  EXPECT_EQ(LitPlaceFraisage(), (std::pair<int, int>{120, -4}));
}

TEST(FermeFraisage, WritesBothSpeeds) {
  ReglagesPlan();
  FermeFraisage(0, 0);
  EXPECT_EQ(LireNombre("Vitesse_Mat_H", 0), 3);
  EXPECT_EQ(LireNombre("Vitesse_Mat_V", 0), 1);
}

TEST(TexteDuree, ReadsAsAClock) {
  EXPECT_EQ(TexteDuree(0), "0 s");
  EXPECT_EQ(TexteDuree(59.4), "59 s");
  EXPECT_EQ(TexteDuree(65), "1 min 05 s");
  EXPECT_EQ(TexteDuree(3725), "1 h 02 min 05 s");
  EXPECT_EQ(TexteDuree(-3), "0 s");
  EXPECT_EQ(TexteDuree(1e300), "596523 h 14 min 07 s");
}

}  // namespace
}  // namespace essai
