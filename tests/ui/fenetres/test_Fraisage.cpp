// The milling window: speeds, figures, the file; by mouse and keys.
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QToolButton>

#include "controller/ClsCdeZENIK.h"
#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/Fichiers.h"
#include "core/Nombres.h"
#include "core/PlanCourant.h"
#include "core/ReglagesCourants.h"
#include "core/RunCourant.h"
#include "core/Textes.h"
#include "core/Traduction.h"
#include "core/ui/ChampNombre.h"
#include "core/ui/ServicesQt.h"
#include "machine/Module_Table.h"
#include "machine/TableCourante.h"
#include "run/Module_GCode.h"
#include "run/Module_Planificateur.h"
#include "run/ui/F_Fraisage.h"
#include "tests/ui/support/SupportUi.h"
#include "toolpath/Module_Decalage.h"

namespace essai {
namespace {

using namespace ovelin;

// A square of 40 mm, 3 mm deep in passes of 1; 3 and 1 mm/s; axes of 50, 20 and 8 mm/s.
void Travail() {
  Vitesse_Mat_H = 3;
  Vitesse_Mat_V = 1;
  VitesseMaxX = 50;
  VitesseMaxY = 20;
  VitesseMaxZ = 8;
  const std::string section = SectionTable(TableDefaut);
  for (const auto& [cle, valeur] :
       {std::pair{"TB_SAV_12", "4"}, {"TB_SAV_13", "3"}, {"TB_SAV_15", "50"}, {"TB_SAV_16", "20"}}) {
    EcrireCleSection(section, cle, valeur);
  }
  AjouteCarre(" A", 10, 10, 40);
  RecalculDecalages();
}

struct Banc {
  F_Fraisage f;
  ChampNombre* h = Controle<ChampNombre>(f, "TB_Vit_Mat_H");
  ChampNombre* v = Controle<ChampNombre>(f, "TB_Vit_Mat_V");
  QPushButton* genere = Controle<QPushButton>(f, "Btn_Gener_GCODE");
  Banc() { Montre(f); }
  ~Banc() { f.close(); }
  Banc(const Banc&) = delete;
  Banc& operator=(const Banc&) = delete;
  std::string Texte(const char* nom) { return Controle<QLabel>(f, nom)->text().toStdString(); }
  std::string Champ(const char* nom) { return Controle<QLineEdit>(f, nom)->text().toStdString(); }
};

// What the writer makes of the document as it stands.
std::string Attendu(EcritureNC& r) {
  const std::string nom = std::exchange(NomFichierNC, std::string());
  const std::string chemin = Dossier() + "/attendu.nc";
  EXPECT_TRUE(EcritGCode(chemin, r));
  NomFichierNC = nom;
  return LitFichierEssai(chemin);
}

TEST(F_Fraisage, ShowsBothSpeedsWithTheUsersMark) {
  Svc.MarqueDecimale = ',';
  Travail();
  Vitesse_Mat_H = 2.5;
  Banc b;
  EXPECT_EQ(b.h->Texte(), "2,5");
  EXPECT_EQ(b.v->Texte(), "1");
}

TEST(F_Fraisage, TellsOfHolesThatTheToolIsTooThickFor) {
  Travail();
  essai::AjouteSequence(" B", {{20, 20}, {22, 20}, {22, 22}, {20, 22}, {20, 20}});
  RecalculDecalages();
  Banc b;
  EXPECT_EQ(b.Texte("Val_Sequences"), "1 / 2");
  EXPECT_TRUE(b.Texte("Lbl_Avis").ends_with(": 1 (B)")) << b.Texte("Lbl_Avis");
}

TEST(F_Fraisage, ShowsWhatThePlanComesTo) {
  Travail();
  Banc b;
  EXPECT_EQ(b.Texte("Val_Sequences"), "1");
  EXPECT_EQ(b.Texte("Val_Passes"), "3");
  EXPECT_EQ(b.Texte("Val_Fond"), "-3.0 mm");
  EXPECT_EQ(b.Texte("Val_Rayon"), "3.0 mm");
  EXPECT_EQ(b.Texte("Val_EtendueX"), "7.0 / 53.0 mm");  // the tool's centre is a radius outside
  EXPECT_EQ(b.Texte("Val_EtendueY"), "7.0 / 53.0 mm");
  EXPECT_EQ(b.Texte("Val_VSansRampe"), "3.00 mm/s");
  EXPECT_EQ(b.Texte("Val_VMax"), "20.00 mm/s");
  EXPECT_EQ(b.Texte("Val_Lignes"), std::to_string(NbDeplacements - 1));
  EXPECT_EQ(b.Texte("Lbl_Avis"), "");
  EcritureNC r;
  Attendu(r);
  EXPECT_EQ(b.Champ("TB_LongueurParcours_NC"), Formate(r.LongueurNC, "####0.0"));
  EXPECT_EQ(b.Champ("TB_TempsFraisage_NC"), Formate(r.TempsNC, "####0.0"));
  EXPECT_NE(b.Texte("Lbl_Duree"), "");
}

TEST(F_Fraisage, AnAngleMakesRampsAndTellsTheWayThatTheyNeed) {
  Svc.MarqueDecimale = ',';
  Travail();
  Banc b;
  auto* angle = Controle<ChampNombre>(b.f, "TB_AngleRampe");
  EXPECT_EQ(angle->Texte(), "0");
  EXPECT_EQ(b.Texte("Lbl_LongueurRampe"), Traduire("F_Fraisage", "Rampe_aucune"));
  const auto lignes = b.Texte("Val_Lignes");
  Tape(*angle, "3");
  EXPECT_EQ(AngleRampe, 3);
  EXPECT_EQ(b.Texte("Lbl_LongueurRampe"), Traduire("F_Fraisage", "Rampe_longueur") + " 19,1 mm");
  EXPECT_NE(b.Texte("Val_Lignes"), lignes) << "the plan is another one";
  Tape(*Controle<ChampNombre>(b.f, "TB_ProfPasse"), "-0,5");
  EXPECT_EQ(b.Texte("Lbl_LongueurRampe"), Traduire("F_Fraisage", "Rampe_longueur") + " 9,5 mm");
}

TEST(F_Fraisage, RefusesAnAngleThatIsNoneInItsField) {
  Travail();
  AngleRampe = 3;
  Banc b;
  auto* angle = Controle<ChampNombre>(b.f, "TB_AngleRampe");
  Attend("F_Fraisage", "Rampe_limites");
  Tape(*angle, "60");
  EXPECT_TRUE(angle->EstRefuse());
  EXPECT_EQ(AngleRampe, 3);
  Tape(*angle, "45");
  EXPECT_FALSE(angle->EstRefuse());
  EXPECT_EQ(AngleRampe, 45);
}

TEST(F_Fraisage, SaysThatThereIsNoToolPath) {
  Banc b;
  EXPECT_EQ(b.Texte("Lbl_Avis"), Traduire("F_Fraisage", "lib040"));
  EXPECT_EQ(b.Texte("Val_Passes"), "-");
  EXPECT_EQ(b.Champ("TB_LongueurParcours_NC"), "0.0");
  Attend("F_Fraisage", "lib040");
  Clique(*b.genere);
}

TEST(F_Fraisage, SaysThatThePassesNeverReachTheDepthWithoutABox) {
  Travail();
  ProfPasse = 1;
  Banc b;
  EXPECT_EQ(b.Texte("Lbl_Avis"), Traduire("erreurs", "95"));
  EXPECT_TRUE(Boites().empty());
  Attend("erreurs", "95");
  Clique(*b.genere);
}

TEST(F_Fraisage, TurnsADepthOfPassOfZeroIntoOneMillimetre) {
  Travail();
  ProfPasse = 0;
  Banc b;
  EXPECT_EQ(ProfPasse, -1);
  EXPECT_EQ(b.Texte("Val_Passes"), "3");
}

TEST(F_Fraisage, TheButtonBesideAWarningTakesTheSpeedThatTheAxesFollow) {
  Travail();
  Banc b;
  auto* remede = Controle<QPushButton>(b.f, "Btn_Remede");
  EXPECT_FALSE(remede->isVisible());
  Tape(*b.h, "35");
  ASSERT_TRUE(remede->isVisible());
  EXPECT_TRUE(remede->text().endsWith(" 20.0 mm/s")) << remede->text().toStdString();
  Clique(*remede);
  EXPECT_EQ(Vitesse_Mat_H, 20);
  EXPECT_EQ(b.h->Texte(), "20");
  EXPECT_EQ(b.Texte("Lbl_Avis"), "");
  EXPECT_FALSE(remede->isVisible());
}

// The square begins 100 mm before the zero.
TEST(F_Fraisage, EachWarningStandsInARowOfItsOwnWithItsButton) {
  Travail();
  for (PointTrace& p : TraceInitial) p.X -= 110;
  RecalculDecalages();
  Vitesse_Mat_H = 35;
  Banc b;
  EXPECT_EQ(b.Texte("Lbl_Avis"), Traduire("F_Fraisage", "lib026"));
  EXPECT_EQ(b.Texte("Lbl_Avis_1"), Traduire(Textes::VitesseMatiereHaute));
  auto* coin = Controle<QPushButton>(b.f, "Btn_Remede");
  auto* vitesse = Controle<QPushButton>(b.f, "Btn_Remede_1");
  EXPECT_TRUE(coin->isVisible() && vitesse->isVisible());
  coin->setFocus();
  QTest::keyClick(coin, Qt::Key_Space);
  EXPECT_NEAR(TraceInitial[0].X, 5, 1e-3) << "the tool path, 3 mm outside, is in the travel, too";
  EXPECT_EQ(b.Texte("Lbl_Avis"), Traduire(Textes::VitesseMatiereHaute));
  EXPECT_FALSE(vitesse->isVisible());
}

TEST(F_Fraisage, AClearanceThatIsNoneIsMendedBesideItsRefusal) {
  Travail();
  HautDeg = 0;
  Banc b;
  EXPECT_EQ(b.Texte("Val_Passes"), "-");
  Clique(*Controle<QPushButton>(b.f, "Btn_Remede"));
  EXPECT_EQ(HautDeg, 10);
  EXPECT_EQ(b.Champ("TB_HautDeg"), "10");
  EXPECT_EQ(b.Texte("Val_Passes"), "3");
}

// The button of that text, in any row of the warnings.
QPushButton* Remede(Banc& b, CleTexte texte) {
  for (auto* bouton : b.f.findChildren<QPushButton*>()) {
    if (bouton->isVisible() && bouton->text().toStdString().starts_with(Traduire(texte))) return bouton;
  }
  return nullptr;
}

TEST(F_Fraisage, ADepthBeyondTheTravelEndsThereAtAPress) {
  Travail();
  HautDeg = 10;
  CourseZ = 12;
  Banc b;
  QPushButton* bouton = Remede(b, Textes::RemedeProfondeur);
  ASSERT_NE(bouton, nullptr);
  EXPECT_TRUE(bouton->text().endsWith(" -2 mm")) << bouton->text().toStdString();
  bouton->setFocus();
  QTest::keyClick(bouton, Qt::Key_Space);
  EXPECT_EQ(Sequences[0].Profondeur, -2);
  EXPECT_EQ(b.Texte("Val_Passes"), "2");
  EXPECT_EQ(Remede(b, Textes::RemedeProfondeur), nullptr);
}

TEST(F_Fraisage, ARadiusThatIsSurelyWrongLeadsToItsField) {
  Travail();
  RayonFraise = 60;
  RecalculDecalages();
  Banc b;
  QPushButton* bouton = Remede(b, Textes::RemedeRayon);
  ASSERT_NE(bouton, nullptr);
  Clique(*bouton);
  auto* champ = Controle<ChampNombre>(b.f, "TB_RayonFraise");
  EXPECT_EQ(QApplication::focusWidget(), champ);
  EXPECT_EQ(champ->selectedText(), "60");
  QTest::keyClicks(champ, "3");
  QTest::keyClick(champ, Qt::Key_Return);
  EXPECT_EQ(RayonFraise, 3);
  EXPECT_EQ(Remede(b, Textes::RemedeRayon), nullptr);
}

// A square of 40 mm is 160 mm long, a quarter of that 40.
TEST(F_Fraisage, NotchesWiderThanTheirPathBecomeAQuarterOfItAtAPress) {
  Travail();
  TraceInitial[2].Cde = CodePC;
  MiniEncoche = 1;
  LargeurEncoche = 200;
  RecalculDecalages();
  Banc b;
  QPushButton* bouton = Remede(b, Textes::RemedeEncoche);
  ASSERT_NE(bouton, nullptr);
  Clique(*bouton);
  EXPECT_EQ(LargeurEncoche, 40);
  EXPECT_EQ(b.Champ("TB_LargeurEncoche"), "40");
  EXPECT_EQ(Remede(b, Textes::RemedeEncoche), nullptr);
}

TEST(F_Fraisage, WhileTheMachineWorksNoWarningIsMended) {
  Travail();
  Banc b;
  Tape(*b.h, "35");
  OperationCarte = true;
  Clique(*Controle<QPushButton>(b.f, "Btn_Remede"));
  OperationCarte = false;
  EXPECT_EQ(Vitesse_Mat_H, 35);
}

TEST(F_Fraisage, SpeedsStandInMillimetresAMinuteTooAndTheRadiusAsADiameter) {
  Svc.MarqueDecimale = ',';
  Travail();
  Vitesse_Mat_H = 2.5;
  RayonFraise = 1.5;
  Banc b;
  EXPECT_EQ(b.Texte("Lbl_Eq_Vit_Mat_H"), "150 mm/min");
  EXPECT_EQ(b.Texte("Lbl_Eq_Vit_Mat_V"), "60 mm/min");
  EXPECT_EQ(b.Texte("Lbl_Eq_RayonFraise"), "Ø 3,0");
  Clique(*Controle<QToolButton>(b.f, "CB_VitMat_4"));
  EXPECT_EQ(b.Texte("Lbl_Eq_Vit_Mat_H"), "210 mm/min");
  b.v->setFocus();
  b.v->selectAll();
  QTest::keyClicks(b.v, "0,33");
  EXPECT_EQ(b.Texte("Lbl_Eq_Vit_Mat_V"), "19,8 mm/min");
}

TEST(F_Fraisage, WarnsOfASpeedThatTheAxesDoNotFollow) {
  Travail();
  Banc b;
  Tape(*b.h, "20.5");
  EXPECT_NE(b.Texte("Lbl_Avis"), "");
  Tape(*b.h, "20");
  EXPECT_EQ(b.Texte("Lbl_Avis"), "");
}

TEST(F_Fraisage, AcceptedSpeedIsKeptWrittenAndPlannedAnew) {
  Travail();
  Banc b;
  const std::string avant = b.Champ("TB_TempsFraisage_NC");
  const std::string longueur = b.Champ("TB_LongueurParcours_NC");
  Tape(*b.h, "1,5");
  EXPECT_EQ(Vitesse_Mat_H, 1.5);
  EXPECT_EQ(LireNombre("Vitesse_Mat_H", 0), 1.5);
  EXPECT_EQ(Modifie, Vrai);
  EXPECT_EQ(b.h->Texte(), "1.5");
  EXPECT_NE(b.Champ("TB_TempsFraisage_NC"), avant);
  EXPECT_EQ(b.Champ("TB_LongueurParcours_NC"), longueur);
  Tape(*b.v, "0.5", Sortie::Entree);
  EXPECT_EQ(Vitesse_Mat_V, 0.5);
  EXPECT_EQ(LireNombre("Vitesse_Mat_V", 0), 0.5);
}

TEST(F_Fraisage, RefusesASpeedAtItsFieldAndKeepsTheOneInForce) {
  Travail();
  Banc b;
  for (const char* texte : {"0", "-2", "", "-"}) {
    Tape(*b.h, texte);
    EXPECT_TRUE(b.h->EstRefuse()) << texte;
    EXPECT_EQ(Vitesse_Mat_H, 3) << texte;
  }
  Tape(*b.h, "4");
  EXPECT_FALSE(b.h->EstRefuse());
  EXPECT_EQ(Vitesse_Mat_H, 4);
}

TEST(F_Fraisage, GeneratingWithASpeedOfZeroInTheFieldIsRefused) {
  Travail();
  Banc b;
  Tape(*b.v, "0");
  Attend("F_Fraisage", "lib041");
  Clique(*b.genere);
  EXPECT_EQ(Vitesse_Mat_V, 1);
  EXPECT_EQ(b.Texte("Lbl_Resultat"), "");
}

TEST(F_Fraisage, StepButtonsChangeTheSpeed) {
  Travail();
  Banc b;
  Clique(*Controle<QToolButton>(b.f, "CB_VitMat_4"));
  EXPECT_EQ(b.h->Texte(), "4.0");
  EXPECT_EQ(Vitesse_Mat_H, 4);
  Clique(*Controle<QToolButton>(b.f, "CB_VitMat_3"));
  EXPECT_EQ(b.h->Texte(), "4.1");
  Clique(*Controle<QToolButton>(b.f, "CB_VitMat_2"));
  Clique(*Controle<QToolButton>(b.f, "CB_VitMat_1"));
  EXPECT_EQ(b.h->Texte(), "3.0");
  EXPECT_EQ(Vitesse_Mat_H, 3);
  for (int i = 0; i < 5; ++i) Clique(*Controle<QToolButton>(b.f, "CB_VitMat_1"));
  EXPECT_EQ(b.h->Texte(), "0.1");
  Tape(*b.h, "19.9");
  Clique(*Controle<QToolButton>(b.f, "CB_VitMat_4"));
  EXPECT_EQ(b.h->Texte(), "20.0");  // the slower axis
}

TEST(F_Fraisage, WritesTheFileOfTheWriterByteForByte) {
  Travail();
  Banc b;
  Tape(*b.h, "2.5");
  const std::string fichier = Dossier() + "/piece.nc";
  AttendFichier("Btn_Gener_GCODE", fichier);
  Clique(*b.genere);
  const std::string octets = LitFichierEssai(fichier);
  EcritureNC r;
  EXPECT_EQ(octets, Attendu(r));
  EXPECT_THAT(octets, testing::HasSubstr("F150.00000"));
  EXPECT_EQ(b.Champ("TB_LongueurParcours_NC") + " " + b.Champ("TB_TempsFraisage_NC"), [&] {
    char t[64];
    std::snprintf(t, sizeof t, "%.1f %.1f", r.LongueurNC, r.TempsNC);
    return std::string(t);
  }());
  EXPECT_THAT(b.Texte("Lbl_Resultat"), testing::HasSubstr("piece.nc"));
  EXPECT_TRUE(b.genere->isEnabled());
  EXPECT_FALSE(Controle<QProgressBar>(b.f, "ProgressBar_NC")->isVisible());
}

TEST(F_Fraisage, EnterWritesSinceItsButtonStandsOut) {
  Travail();
  Banc b;
  EXPECT_TRUE(b.genere->isDefault());
  const std::string fichier = Dossier() + "/piece.nc";
  AttendFichier("Btn_Gener_GCODE", fichier);
  QTest::keyClick(b.v, Qt::Key_Return);  // a field without an entry
  EXPECT_TRUE(FichierExiste(fichier));
}

TEST(F_Fraisage, ProposesTheDrawingsNameAndThenTheOneUsedLast) {
  Travail();
  FichierCourant = Dossier() + "/dessin.dxf";
  std::vector<std::string> proposes;
  std::string reponse;
  Svc.ChoisitFichier = [&](const DialogueFichier& d) {
    proposes.push_back(d.propose);
    return reponse;
  };
  Banc b;
  Clique(*b.genere);  // cancelled
  reponse = Dossier() + "/autre.nc";
  Clique(*b.genere);
  Clique(*b.genere);
  EXPECT_THAT(proposes, testing::ElementsAre(Dossier() + "/dessin.nc", Dossier() + "/dessin.nc", reponse));
}

TEST(F_Fraisage, CancelledDialogLeavesTheFiguresOfThePlan) {
  Travail();
  Banc b;
  const std::string longueur = b.Champ("TB_LongueurParcours_NC");
  AttendFichier("Btn_Gener_GCODE", "");
  Clique(*b.genere);
  EXPECT_EQ(b.Champ("TB_LongueurParcours_NC"), longueur);
  EXPECT_EQ(b.Texte("Lbl_Resultat"), "");
  EXPECT_TRUE(b.f.isVisible());
}

TEST(F_Fraisage, SaysTheExtensionAndTheFailureOfTheWriting) {
  Travail();
  Banc b;
  AttendFichier("Btn_Gener_GCODE", Dossier() + "/piece.txt");
  Attend("F_Fraisage", "lib037");
  Clique(*b.genere);
  AttendFichier("Btn_Gener_GCODE", Dossier() + "/absent/piece.nc");
  Attend("F_Fraisage", "lib043");
  Clique(*b.genere);
  EXPECT_EQ(b.Texte("Lbl_Resultat"), "");
  EXPECT_TRUE(b.genere->isEnabled());
}

// A job of many rows; every round of events looks at the window, at a clock that always says "due".
void TravailLong() {
  Travail();
  std::vector<std::pair<float, float>> points;
  for (int i = 0; i < 12'000; ++i) {
    const int rang = i / 200;
    points.emplace_back(static_cast<float>(i % 200), static_cast<float>(rang));
  }
  AjouteSequence(" B", points, 2, -1);
  RecalculDecalages();
}

TEST(F_Fraisage, CountsUpWhileTheFileIsWritten) {
  TravailLong();
  Banc b;
  std::vector<double> longueurs;
  std::vector<int> barres;
  double heure = 0;
  Svc.Horloge = [&] { return heure += 1; };
  Svc.ChoisitFichier = [](const DialogueFichier&) { return Dossier() + "/long.nc"; };
  Svc.LaisseEvenements = [&](ovelin::Evenements mode) {
    EXPECT_EQ(mode, ovelin::Evenements::Affichage);
    if (!b.f.Ecrit()) return;
    EXPECT_FALSE(b.genere->isEnabled());
    b.f.MontreAvancement();
    longueurs.push_back(std::stod(b.Champ("TB_LongueurParcours_NC")));
    barres.push_back(Controle<QProgressBar>(b.f, "ProgressBar_NC")->value());
  };
  Clique(*b.genere);
  ASSERT_GT(longueurs.size(), 4U);
  EXPECT_TRUE(std::is_sorted(longueurs.begin(), longueurs.end()));
  EXPECT_LT(longueurs.front(), longueurs.back());
  EXPECT_GT(barres.back(), 500);
  EXPECT_FALSE(b.f.Ecrit());
}

TEST(F_Fraisage, ClosingWhileTheFileIsWrittenComesAfter) {
  TravailLong();
  Banc b;
  double heure = 0;
  bool visible = false;
  int demandes = 0;
  Svc.Horloge = [&] { return heure += 1; };
  Svc.ChoisitFichier = [](const DialogueFichier&) { return Dossier() + "/long.nc"; };
  Svc.LaisseEvenements = [&](ovelin::Evenements) {
    if (!b.f.Ecrit() || demandes++ > 0) return;
    b.f.close();
    visible = b.f.isVisible();
  };
  Clique(*b.genere);
  EXPECT_TRUE(visible);
  Evenements();
  EXPECT_FALSE(b.f.isVisible());
  EcritureNC r;
  EXPECT_EQ(LitFichierEssai(Dossier() + "/long.nc"), Attendu(r));
}

TEST(F_Fraisage, IsNotModalAndClosesWithItsSpeedsAndItsPlace) {
  Travail();
  Banc b;
  EXPECT_FALSE(b.f.isModal());
  Clique(*Controle<QPushButton>(b.f, "Btn_Fermer"));
  EXPECT_FALSE(b.f.isVisible());
  EXPECT_EQ(LireNombre("Vitesse_Mat_H", 0), 3);
  EXPECT_NE(LireCleIni("F_Fraisage_Left", "rien"), "rien");
}

TEST(F_Fraisage, ComesBackWhereItWasAndNeverOffTheScreen) {
  Travail();
  EcrireCle("F_Fraisage_Left", "1500");
  EcrireCle("F_Fraisage_Top", "750");
  {
    Banc b;
    EXPECT_EQ(b.f.y(), 50);
    EXPECT_GE(b.f.x(), 0);
    EXPECT_LE(b.f.x(), 100) << "as far to the left as the screen wants it";
  }
  EcrireCle("F_Fraisage_Left", "900000");
  OublieCles();
  Banc b;
  EXPECT_LT(b.f.x(), 2000);
}

}  // namespace
}  // namespace essai
