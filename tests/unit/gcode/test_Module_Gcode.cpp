// What the workshop puts in force and tells.
#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/Fichiers.h"
#include "gcode/Module_Gcode.h"
#include "machine/TableCourante.h"
#include "tests/support/Support.h"
#include "toolpath/Module_Sequence.h"

namespace essai {
namespace {

using namespace ovelin;

TEST(AnalyseProgramme, PutsItsBoundsInForceUntilTheyAreTakenBack) {
  AjouteCarre(" A", 100, 200, 30);
  EncombrementGeneral();
  AnalyseProgramme(Programme("F60\nG01 X-1.5 Y2\nX7 Y-4\n"));
  EXPECT_EQ(Xmin, -1.5F);
  EXPECT_EQ(Xmax, 7);
  EXPECT_EQ(Ymin, -4);
  EXPECT_EQ(Ymax, 2);
  RetablitBornes();
  EXPECT_EQ(Xmin, 100);
  EXPECT_EQ(Ymax, 230);
}

TEST(AnalyseProgramme, TakesTheColoursOfTheSettings) {
  EcrireCle("CouleurCoupe", "197121");  // 1 + 256 * 2 + 65536 * 3
  const MesureProgramme m = AnalyseProgramme(Programme("F60\nG01 X1\n"));
  EXPECT_EQ(m.TraceVertex.at(1).Couleur, 0x010203U);
}

TEST(DitDefauts, TellsEachKindOnce) {
  MesureProgramme m;
  DitDefauts(m);
  EXPECT_TRUE(Boites().empty());
  m.rejets = {"G17 ", "E5"};
  m.defauts = {DefautArc::SansCercle, DefautArc::RayonsInegaux, DefautArc::SansCercle};
  m.lignesEchouees = 3;
  Attend("F_Gcode", "lib003");
  AttendTexte("problème centre pour interpolation circulaire");
  Attend("F_Gcode", "lib005");
  Attend("erreurs", "120");
  DitDefauts(m);
  EXPECT_TRUE(Boites()[0].texte.ends_with(" G17 "));
  EXPECT_EQ(Boites()[0].icone, Icone::Critique);
  EXPECT_EQ(Boites()[1].titre, "");
}

TEST(ChoisitProgramme, ProposesTheLastFileAndKeepsTheChoiceInTheSettingsAlone) {
  FichierProjet = FichierCourant = EcritFichierEssai("projet.OVL", "");
  EcrireCleSection("OVELIN", "Fichier", "/avant.nc");
  AttendFichier("mnu_Ouvrir_Gcode", Dossier() + "/choisi.nc");
  EXPECT_EQ(ChoisitProgramme(), Dossier() + "/choisi.nc");
  EXPECT_EQ(LireCleIni("Fichier", ""), Dossier() + "/choisi.nc");
  EXPECT_EQ(LitFichierEssai(FichierProjet).find("Fichier"), std::string::npos);
}

TEST(TexteHorsCourse, NamesEachAxisThatLeavesTheTravel) {
  CourseX = 100;
  CourseY = 50;
  CourseZ = 20;
  Svc.MarqueDecimale = '.';
  MesureProgramme m;
  m.bornes = {0, 100, 0, 50, -15, 5};
  EXPECT_EQ(TexteHorsCourse(m), "") << "the travel to its end";
  m.bornes = {-1, 100.5, 0, 60, -16, 5};
  const std::string texte = TexteHorsCourse(m);
  EXPECT_TRUE(texte.ends_with(" X -1.00 < 0.00, X 100.50 > 100.00, Y 60.00 > 50.00, Z 21.00 > 20.00")) << texte;
}

TEST(TexteSansVitesse, NamesTheFirstLineAndTheCount) {
  MesureProgramme m;
  EXPECT_EQ(TexteSansVitesse(m), "");
  m.sansVitesse = 3;
  m.ligneSansVitesse = 12;
  EXPECT_TRUE(TexteSansVitesse(m).ends_with(" 12: 3"));
}

TEST(OuvreProgramme, TellsRefusedLinesAndTakesTheProgramAllTheSame) {
  Programme p;
  Attend("F_Gcode", "lib006");
  EXPECT_TRUE(OuvreProgramme(EcritFichierEssai("a.nc", "X1\n\nx\n"), p));
  EXPECT_EQ(p.NombreLignes(), 3U);
  EXPECT_EQ(Boites()[0].icone, Icone::Exclamation);
  EXPECT_TRUE(OuvreProgramme(EcritFichierEssai("b.nc", "X1\n(note)\n"), p)) << "comments are no bad lines";
}

TEST(OuvreProgramme, AFolderIsRefusedAndTheProgramBeforeStays) {
  Programme p("X1\n");
  Attend("F_Representation", "lib110");
  EXPECT_FALSE(OuvreProgramme(Dossier(), p));
  EXPECT_EQ(p.NombreLignes(), 1U);
}

}  // namespace
}  // namespace essai
