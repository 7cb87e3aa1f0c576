// The start and the end of the whole program.
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QLabel>
#include <QTimer>
#include <csignal>
#include <filesystem>

#include "app/ovelin/Composition.h"
#include "closed/CarteVirtuelle.h"
#include "controller/ClsCdeZENIK.h"
#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/Dossiers.h"
#include "core/Fichiers.h"
#include "core/ReglagesCourants.h"
#include "core/ui/Fenetres.h"
#include "tests/ui/programme/ProgrammeEssai.h"
#include "tests/unit/controller/TableEssai.h"
#include "workspace/Module_Annulation.h"

namespace {

using namespace ovelin;
using namespace essai;

TEST(Programme, OpensItsWindowWithADrawing) {
  ConfigPresente();
  const std::string dessin = Dossier() + "/equerre.dxf";
  std::filesystem::copy_file(DossierExemples() + "/equerre.dxf", dessin);
  ProgrammeEssai p(dessin);
  ASSERT_TRUE(p.Demarre());
  EXPECT_TRUE(p.Fenetre()->isVisible());
  EXPECT_EQ(p.Fenetre()->windowTitle(), QStringLiteral("OVELIN <-> equerre.dxf"));
  EXPECT_FALSE(TraceDecale.empty());
  EXPECT_TRUE(p.Active("mnu_Save"));
}

TEST(Programme, AsksForThePowerInterfaceAtItsFirstStartAndWritesItsSettings) {
  Attend("erreurs", "401", Reponse::Ok);
  ProgrammeEssai p;
  ASSERT_TRUE(p.Demarre());
  EXPECT_TRUE(FichierExiste(Dossier() + "/config/OVELIN.ini"));
}

TEST(Programme, InscribesTheProjectFilesForTheDesktop) {
  ConfigPresente();
  ProgrammeEssai p;
  ASSERT_TRUE(p.Demarre());
  const std::string entree = LitFichierEssai(Dossier() + "/donnees/applications/ovelin.desktop");
  EXPECT_NE(entree.find("Exec=\"" + QCoreApplication::applicationFilePath().toStdString() + "\" %f"),
            std::string::npos)
      << entree;
}

TEST(Programme, RefusesASecondCopyWithItsBox) {
  ConfigPresente();
  const int autre = open((Dossier() + "/config/.verrou").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
  ASSERT_GE(autre, 0);
  ASSERT_EQ(flock(autre, LOCK_EX | LOCK_NB), 0);
  Attend("erreurs", "31");
  {
    ProgrammeEssai p;
    EXPECT_FALSE(p.Demarre());
    EXPECT_EQ(p.Fenetre(), nullptr);
    EXPECT_EQ(Boites().back().titre, "Erreur");
    EXPECT_EQ(Boites().back().icone, Icone::Exclamation);
  }
  close(autre);
  EXPECT_FALSE(std::filesystem::exists(Dossier() + "/donnees/applications"));  // nothing else has happened
}

TEST(Programme, LetsTheNextCopyInWhenItHasEnded) {
  ConfigPresente("[OVELIN]\r\nCarteZENIK=aucune\r\n");
  for (int fois = 0; fois < 2; ++fois) {
    ProgrammeEssai p;
    EXPECT_TRUE(p.Demarre());
    const int autre = open((Dossier() + "/config/.verrou").c_str(), O_RDWR | O_CLOEXEC);
    EXPECT_NE(flock(autre, LOCK_EX | LOCK_NB), 0);
    close(autre);
  }
}

TEST(Programme, HasTheVirtualBoardAndSaysSo) {
  ConfigPresente();
  ProgrammeEssai p;
  ASSERT_TRUE(p.Demarre());
  EXPECT_TRUE(CdeZENIK->IsAvailable());
  EXPECT_EQ(p.Fenetre()->findChild<QLabel*>(QStringLiteral("SB1_9"))->text(), QStringLiteral("Carte virtuelle"));
  EXPECT_NE(CdeZENIK->TableRecherche(TableDefaut), -1) << "the start has brought the table to the board";
}

TEST(Programme, WithAWrongBoardTellsItAndHasNone) {
  ConfigPresente("[OVELIN]\r\nCarteZENIK=foo\r\n");
  Attend("erreurs", "Carte_inconnue");
  ProgrammeEssai p;
  ASSERT_TRUE(p.Demarre());
  EXPECT_NE(Boites().back().texte.find("CarteZENIK=foo"), std::string::npos) << Boites().back().texte;
  EXPECT_FALSE(CdeZENIK->IsAvailable());
}

TEST(Programme, TakesItsTemporaryFolderAway) {
  ConfigPresente();
  std::string temporaire;
  {
    ProgrammeEssai p;
    ASSERT_TRUE(p.Demarre());
    temporaire = DossierTemp;
    EXPECT_TRUE(std::filesystem::is_directory(temporaire));
    EcritFichierEntier(temporaire + "/00001.OVL", "x");
  }
  EXPECT_FALSE(std::filesystem::exists(temporaire));
}

TEST(Programme, WritesItsPlaceWhenItsWindowCloses) {
  ConfigPresente();
  ProgrammeEssai p;
  ASSERT_TRUE(p.Demarre());
  p.Fenetre()->findChild<QTimer*>(QStringLiteral("Timer_Cadre"))->stop();  // the screen of a test is smaller
  p.Fenetre()->resize(900, 700);
  essai::Evenements();
  p.Fenetre()->close();
  EXPECT_EQ(LireCle("F_Representation_Width", ""), "13500");  // twips, 15 a pixel
  EXPECT_EQ(LireCle("F_Representation_Height", ""), "10500");
}

// Closes the next modal window as soon as it is there.
class FermeModale {
 public:
  FermeModale() {
    QObject::connect(&minuterie_, &QTimer::timeout, &minuterie_, [this] {
      QWidget* devant = QApplication::activeModalWidget();
      if (devant == nullptr) return;
      minuterie_.stop();
      nom = devant->objectName().toStdString();
      devant->close();
    });
    minuterie_.start(0);
  }
  std::string nom;

 private:
  QTimer minuterie_;
};

// The check and the writer read another value for a key that the delivered table lacks: every check behind the
// first writing differs.
TEST(Programme, AsksOnceALifeWhetherTheDeliveredTableIsToBeWrittenAnew) {
  ConfigPresente("[OVELIN]\r\nTableDefaut=OVELIN\r\n[table_OVELIN]\r\nTB_SAV_30=30\r\n");
  for (std::size_t depart = 1; depart <= 3; ++depart) {
    Attend("erreurs", "2", depart == 2 ? Reponse::Oui : Reponse::Non);
    ProgrammeEssai p;
    ASSERT_TRUE(p.Demarre()) << depart;
    for (int n = 0; n < 3; ++n) EXPECT_TRUE(CdeZENIK->TableVerif());
    EXPECT_EQ(Boites().size(), depart);
  }
}

// A board file in which other tables hold the first three slots.
void CartePleine() {
  PoseTable("T0");
  zenikcom::ConditionsCarte conditions;
  conditions.rapide = true;
  conditions.fichier = Dossier() + "/config/carte.zenik";
  const auto carte = zenikcom::CreeCarteVirtuelle(std::move(conditions));
  ClsCdeZENIK cde(zenikcom::LiaisonVirtuelle(carte));
  cde.ChargeParametres();
  for (std::uint8_t n = 0; n < 3; ++n) cde.TableEcrire("T" + std::to_string(n), n);
  ASSERT_TRUE(carte->Enregistre());
  OublieCles();
}

TEST(Programme, AsksAtItsStartWhichTableOfAFullBoardMakesRoomAndGoesOn) {
  ConfigPresente("[OVELIN]\r\nTableDefaut=OVELIN\r\n[table_OVELIN]\r\nTB_SAV_15=15\r\n");
  CartePleine();
  ProgrammeEssai p;
  const FermeModale ferme;
  ASSERT_TRUE(p.Demarre());
  EXPECT_EQ(ferme.nom, "F_ChangtTable");
  EXPECT_TRUE(p.Fenetre()->isVisible());
  EXPECT_EQ(CdeZENIK->TableRecherche("OVELIN"), -1) << "closed without a choice";
}

// Each name that the windows ask for exists or its command isn't shown.
TEST(InstalleFenetres, KnowsItsWindowsAndNoOthers) {
  ConfigPresente();
  const ProgrammeEssai p;
  for (const LigneFenetre& ligne : TableFenetres()) EXPECT_TRUE(FenetreExiste(ligne.nom)) << ligne.nom;
  EXPECT_FALSE(FenetreExiste("F_Martienne"));
  EXPECT_EQ(OuvreFenetre("F_Martienne", nullptr), IssueFenetre::Absente);
}

TEST(Programme, OpensEachModalWindowAndComesBack) {
  ConfigPresente();
  const std::string dessin = Dossier() + "/equerre.dxf";
  std::filesystem::copy_file(DossierExemples() + "/equerre.dxf", dessin);
  ProgrammeEssai p(dessin);
  ASSERT_TRUE(p.Demarre());
  Attend("erreurs", "2", Reponse::Non);  // the first window whose end looks at the board's table
  for (const LigneFenetre& ligne : TableFenetres()) {
    if (ligne.tenue != Tenue::Modale) continue;
    const FermeModale ferme;
    EXPECT_EQ(OuvreFenetre(ligne.nom, p.Fenetre()), IssueFenetre::Annulee);
    EXPECT_EQ(ferme.nom, ligne.nom);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  }
}

// The real size dialog of a drawing that is no project: its OK lets the opening go on.
TEST(Programme, AsksForTheSizeOfADrawing) {
  ConfigPresente();
  const std::string dessin = Dossier() + "/equerre.dxf";
  std::filesystem::copy_file(DossierExemples() + "/equerre.dxf", dessin);
  ProgrammeEssai p;
  const Services script = Svc;
  InstalleFenetres();
  ASSERT_NE(Svc.Dimensionne.target_type(), script.Dimensionne.target_type());
  ASSERT_TRUE(p.Demarre());
  const FermeModale ferme;
  p.Ouvre(dessin);
  EXPECT_EQ(ferme.nom, "F_Dimension");
  EXPECT_FALSE(TraceDecale.empty());
}

// --- settings that can't be read -------------------------------------------------------------------------------

TEST(Demarre, TellsTheValuesOfTheSettingsThatCantBeReadAndGoesOn) {
  ConfigPresente("[OVELIN]\r\nTableDefaut=OVELIN\r\nRayonFraise=1,5mm\r\n[table_OVELIN]\r\nTB_SAV_15=vite\r\n");
  Attend("erreurs", "Valeur");
  ProgrammeEssai p;
  ASSERT_TRUE(p.Demarre());
  ASSERT_EQ(Boites().size(), 1U);
  const BoiteMessage& boite = Boites().back();
  EXPECT_EQ(boite.icone, Icone::Exclamation);
  EXPECT_NE(boite.texte.find("OVELIN.ini:3: RayonFraise=1,5mm\n"), std::string::npos) << boite.texte;
  // The window has put its keys between the two by then: the line is that of the file as it stands.
  EXPECT_NE(boite.texte.find(": TB_SAV_15=vite"), std::string::npos) << boite.texte;
  EXPECT_TRUE(p.Fenetre()->isVisible());
  EXPECT_EQ(Regl.RayonFraise, Reglages{}.RayonFraise);
}

// --- settings that can't be written ----------------------------------------------------------------------------

TEST(SignaleReglages, TellsAFailedWriteOnceAndTheProgramGoesOn) {
  const std::string ini = ConfigPresente();
  const std::string dessin = Dossier() + "/equerre.dxf";
  std::filesystem::copy_file(DossierExemples() + "/equerre.dxf", dessin);
  ProgrammeEssai p;
  ASSERT_TRUE(p.Demarre());
  p.programme->SignaleReglages();
  const std::string avant = LitFichierEssai(ini);
  ASSERT_EQ(chmod(ini.c_str(), 0444), 0);
  p.Ouvre(dessin);
  EXPECT_FALSE(TraceDecale.empty());
  Attend("erreurs", "103");
  p.programme->SignaleReglages();
  EXPECT_NE(Boites().back().texte.find("OVELIN.ini: Permission denied"), std::string::npos)
      << Boites().back().texte;
  p.Ouvre(dessin);
  p.programme->SignaleReglages();  // the same once more: nothing is said
  EXPECT_EQ(LitFichierEssai(ini), avant);
}

TEST(SignaleReglages, TellsAFolderInWhichNoSettingsCanBe) {
  EcritFichierEssai("fichier", "a file where the folder would be");
  Attend("erreurs", "401", Reponse::Ok);
  Attend("erreurs", "Carte_fichier");
  Attend("erreurs", "103");
  ProgrammeEssai p("", Dossier() + "/fichier/config");
  ASSERT_TRUE(p.Demarre());
  EXPECT_TRUE(p.Fenetre()->isVisible());
  EXPECT_EQ(Regl.RayonFraise, Reglages{}.RayonFraise);  // the built-in values are in force
  p.programme->SignaleReglages();
}

// --- the fatal path --------------------------------------------------------------------------------------------

TEST(Programme, StopsTheMachineBeforeAFatalEnd) {
  ConfigPresente();
  const ProgrammeEssai p;
  ASSERT_NE(ArretFatal, nullptr);
  ArretFatal();  // without a board there is nothing to stop
}

TEST(Signaux, EndTheProgramThroughItsLoopWithSettingsAndEditedWork) {
  for (const int signal : Signaux::Ecoutes) {
    ConfigPresente("[OVELIN]\r\nCarteZENIK=aucune\r\n");
    const std::string dessin = Dossier() + "/equerre.dxf";
    std::filesystem::copy_file(DossierExemples() + "/equerre.dxf", dessin,
                               std::filesystem::copy_options::overwrite_existing);
    ProgrammeEssai p(dessin);
    ASSERT_TRUE(p.Demarre());
    std::vector<int> statuts;
    p.programme->Quitte = [&statuts](int statut) { statuts.push_back(statut); };
    RayonFraise = 1.75;
    TraceInitial[0].X += 1;
    PrendInstantane();
    raise(signal);
    EXPECT_TRUE(statuts.empty());
    essai::Evenements();
    EXPECT_EQ(statuts, std::vector<int>{128 + signal});
    EXPECT_EQ(LireCleIni("RayonFraise", ""), "1.75");
    EXPECT_FALSE(ListeFichiers(DossierTemp, "OVL").empty());
  }
}

TEST(Signaux, AreTheSystemsAgainWhenNobodyListens) {
  struct sigaction avant {};
  sigaction(SIGTERM, nullptr, &avant);
  {
    const Signaux signaux([](int) {});
  }
  struct sigaction apres {};
  sigaction(SIGTERM, nullptr, &apres);
  EXPECT_EQ(apres.sa_handler, avant.sa_handler);
}

TEST(FinDeSession, AsksWhereItMayAndElseEndsAsASignalDoes) {
  ConfigPresente();
  const std::string dessin = Dossier() + "/equerre.dxf";
  std::filesystem::copy_file(DossierExemples() + "/equerre.dxf", dessin);
  ProgrammeEssai p(dessin);
  ASSERT_TRUE(p.Demarre());
  std::vector<int> statuts;
  p.programme->Quitte = [&statuts](int statut) { statuts.push_back(statut); };
  TraceInitial[0].X += 1;
  Attend("F_Representation", "lib140", Reponse::Annuler);
  EXPECT_FALSE(p.programme->FinDeSession(true));
  EXPECT_TRUE(statuts.empty());
  EXPECT_TRUE(p.programme->FinDeSession(false));
  EXPECT_EQ(statuts, std::vector<int>{128 + SIGTERM});
}

}  // namespace
