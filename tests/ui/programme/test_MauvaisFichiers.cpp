// Files that can't be opened or written, through the main window: a clear box each, the state that stands behind
// it, and everything goes on from there.
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QAction>
#include <QMenu>
#include <cerrno>
#include <cstring>
#include <filesystem>

#include "core/DocumentCourant.h"
#include "core/Fichiers.h"
#include "core/Reglages.h"
#include "core/Textes.h"
#include "tests/ui/programme/ProgrammeEssai.h"
#include "workspace/Formats.h"
#include "workspace/Module_Recents.h"

namespace {

using namespace ovelin;
using namespace essai;
namespace fs = std::filesystem;

// Commands that need a drawing.
const std::vector<const char*> Commandes{"mnu_Save", "mnu_SaveAs", "mnu_Optimisation", "mnu_Zoom1", "mnu_ZoomPlus"};

class MauvaisFichiers : public testing::Test {
 protected:
  MauvaisFichiers() {
    ConfigPresente();
    bon_ = Dossier() + "/bon.dxf";
    fs::copy_file(DossierExemples() + "/equerre.dxf", bon_);
    p_ = std::make_unique<ProgrammeEssai>();
    EXPECT_TRUE(p_->Demarre());
  }

  // A drawing stands, then `chemin` is chosen: the box of that key, and the drawing stands as it was.
  void Refuse(const std::string& chemin, const std::string& section, const std::string& cle) {
    SCOPED_TRACE(chemin);
    p_->Ouvre(bon_);
    ASSERT_TRUE(p_->Active("mnu_Save"));
    Attend(section, cle);
    const std::size_t avant = Boites().size();
    p_->Ouvre(chemin);
    ASSERT_EQ(Boites().size(), avant + 1);
    EXPECT_EQ(Boites().back().icone, Icone::Critique);
    EXPECT_GT(Boites().back().texte.size(), 10U) << "no text for " << cle;
    EXPECT_NE(Boites().back().texte, cle);
    for (const char* commande : Commandes) EXPECT_TRUE(p_->Active(commande)) << commande;
    EXPECT_EQ(FichierCourant, bon_);
    ResteUtilisable();
  }
  // The good drawing opens, and can be changed and saved.
  void ResteUtilisable() {
    p_->Ouvre(bon_);
    for (const char* commande : Commandes) EXPECT_TRUE(p_->Active(commande)) << commande;
    EXPECT_GT(NbPoints, 2);
    EXPECT_FALSE(TraceDecale.empty());
    const std::string projet = Dossier() + "/suite.OVL";
    AttendFichier("mnu_Save", projet);
    p_->Enregistre();
    EXPECT_TRUE(LitFichierEssai(projet).ends_with("\r\n"));
    EXPECT_EQ(Modifie, Faux);
    fs::remove(projet);
  }
  std::string Enregistre(const std::string& nom) {
    p_->Ouvre(bon_);
    const std::string projet = Dossier() + "/" + nom;
    AttendFichier("mnu_Save", projet);
    p_->Enregistre();
    return projet;
  }

  std::string bon_;
  std::unique_ptr<ProgrammeEssai> p_;
};

TEST_F(MauvaisFichiers, ADrawingThatIsNoneOfItsFormat) {
  Refuse(EcritFichierEssai("texte.dxf", "Bonjour\r\n"), "F_Representation", "lib115");
  Refuse(EcritFichierEssai("vide.plt", "rien du tout\r\n"), "F_Representation", "lib117");
  Refuse(EcritFichierEssai("vide.dat", "Clark Y\r\n"), "F_Representation", "lib118");
  Refuse(EcritFichierEssai("texte.eps", "Bonjour\r\n"), "F_Representation", "lib120");
}

TEST_F(MauvaisFichiers, AFormatThatIsNotKnown) {
  Refuse(EcritFichierEssai("lettre.txt", "Cher ami\r\n"), "F_Representation", "lib111");
}

TEST_F(MauvaisFichiers, ADrawingWithLessThanTwoPoints) {
  Refuse(EcritFichierEssai("vide.dxf", "0\r\nSECTION\r\n2\r\nENTITIES\r\n0\r\nENDSEC\r\n0\r\nEOF\r\n"),
         "F_Representation", "lib109");
}

TEST_F(MauvaisFichiers, ADirectory) {
  fs::create_directory(Dossier() + "/dossier.dxf");
  fs::create_directory(Dossier() + "/dossier.ovl");
  Refuse(Dossier() + "/dossier.dxf", "F_Representation", "lib110");
  Refuse(Dossier() + "/dossier.ovl", "F_Representation", "lib110");
  EXPECT_NE(Boites().back().texte.find("Is a directory"), std::string::npos) << Boites().back().texte;
}

TEST_F(MauvaisFichiers, AProjectWithoutPointsOrWithAllInOnePlace) {
  Refuse(EcritFichierEssai("vide.ovl", "$$RayonFraise=1\r\n"), "erreurs", "100");
  Refuse(EcritFichierEssai("un.ovl", "5              5              PD              A\r\n"), "erreurs", "101");
}

// Everything of this test to that user: while the program runs as that user, it writes settings by a timer, too.
void Donne(uid_t utilisateur) {
  const auto donne = [&](const fs::path& chemin) {
    ASSERT_EQ(lchown(chemin.c_str(), utilisateur, static_cast<gid_t>(-1)), 0) << chemin;
  };
  donne(Dossier());
  for (const auto& entree : fs::recursive_directory_iterator(Dossier())) donne(entree.path());
}

// The superuser may read everything: as another user for the moment of the opening.
TEST_F(MauvaisFichiers, AFileWithoutThePermissionToRead) {
  const std::string dessin = EcritFichierEssai("secret.dxf", LitFichierEssai(bon_));
  const std::string projet = Enregistre("secret.OVL");
  p_->Ouvre(bon_);
  for (const std::string& chemin : {dessin, projet}) {
    SCOPED_TRACE(chemin);
    ASSERT_EQ(chmod(chemin.c_str(), 0), 0);
    ASSERT_EQ(chmod(Dossier().c_str(), 0755), 0);
    const bool racine = geteuid() == 0;
    constexpr uid_t Personne = 65534;
    if (racine) Donne(Personne);
    if (racine && seteuid(Personne) != 0)
      GTEST_SKIP() << "the user can't be changed here: " << std::strerror(errno);
    Attend("F_Representation", "lib110");
    p_->Ouvre(chemin);
    p_->programme->SignaleReglages();  // what the timer does in an opening that takes long
    ASSERT_TRUE(!racine || seteuid(0) == 0);
    ASSERT_FALSE(Boites().empty());
    EXPECT_NE(Boites().back().texte.find("Permission denied"), std::string::npos) << Boites().back().texte;
    EXPECT_TRUE(p_->Active("mnu_Save"));
    ResteUtilisable();
  }
}

TEST_F(MauvaisFichiers, AFileThatHasVanishedFromTheRecentList) {
  const std::string parti = EcritFichierEssai("parti.dxf", LitFichierEssai(bon_));
  p_->Ouvre(parti);
  p_->Ouvre(bon_);
  ASSERT_EQ(Recents.chemins, (std::vector<std::string>{bon_, parti}));
  fs::remove(parti);
  const std::string avant = FichierCourant;
  QAction* entree = nullptr;
  for (QAction* a : p_->Fenetre()->findChildren<QAction*>()) {
    if (a->text().contains(QString::fromStdString(NomDe(parti)))) entree = a;
  }
  ASSERT_NE(entree, nullptr);
  Attend("F_Representation", "lib340");
  entree->trigger();
  essai::Evenements();
  EXPECT_EQ(Recents.chemins, (std::vector<std::string>{bon_}));
  EXPECT_EQ(FichierCourant, avant);
  EXPECT_TRUE(p_->Active("mnu_Save"));  // the drawing that stood stands
}

TEST_F(MauvaisFichiers, AProjectCutInTheMiddleOfALine) {
  const std::string projet = Enregistre("coupe.OVL");
  const std::int32_t entier = NbPoints;
  const std::string octets = LitFichierEssai(projet);
  // In the middle of a point line, half-way through the points.
  const std::size_t points = octets.find("\r\n", octets.rfind("$$Se")) + 2;
  const std::size_t coupure = points + 62 * (static_cast<std::size_t>(entier) / 2) + 20;
  p_->Ouvre(bon_);
  EcritFichierEssai("coupe.OVL", octets.substr(0, coupure));
  Attend("erreurs", "102");
  p_->Ouvre(projet);
  ASSERT_FALSE(Boites().empty());
  EXPECT_EQ(Boites().back().icone, Icone::Exclamation);
  EXPECT_NE(Boites().back().texte.find("coupe.OVL"), std::string::npos);
  EXPECT_EQ(NbPoints, entier / 2 + 1);
  EXPECT_TRUE(p_->Active("mnu_Save"));
  EXPECT_FALSE(TraceDecale.empty());
  // Saved, it is whole again.
  p_->Enregistre();
  p_->Ouvre(projet);
  EXPECT_EQ(NbPoints, entier / 2 + 1);
}

// --- saves -------------------------------------------------------------------------------------------------------

TEST_F(MauvaisFichiers, ASaveIntoAFullDiskKeepsWhatWasThere) {
  const std::string disque = Dossier() + "/disque";
  fs::create_directory(disque);
  if (mount("tmpfs", disque.c_str(), "tmpfs", 0, "size=64k") != 0) {
    GTEST_SKIP() << "no small disk can be mounted here: " << std::strerror(errno);
  }
  p_->Ouvre(bon_);
  const std::string projet = disque + "/plein.OVL";
  AttendFichier("mnu_Save", projet);
  p_->Enregistre();
  const std::string avant = LitFichierEssai(projet);
  EXPECT_FALSE(avant.empty());
  // What is left is filled up.
  std::string reste(1 << 20, 'x');
  while (!reste.empty() && !EcritFichierEntier(disque + "/reste", reste, Garantie::Processus).empty()) {
    reste.resize(reste.size() / 2);
  }
  TraceInitial[0].X += 1;
  Modifie = Vrai;
  Attend("F_Representation", "lib125");
  p_->Enregistre();
  EXPECT_NE(Boites().back().texte.find("No space left on device"), std::string::npos) << Boites().back().texte;
  EXPECT_EQ(LitFichierEssai(projet), avant);
  EXPECT_EQ(Modifie, Vrai);
  std::vector<std::string> noms;
  for (const auto& e : fs::directory_iterator(disque)) noms.push_back(e.path().filename().string());
  std::sort(noms.begin(), noms.end());
  EXPECT_EQ(noms, (std::vector<std::string>{"plein.OVL", "reste"}));  // nothing half-written beside
  fs::remove(disque + "/reste");
  p_->Enregistre();  // the work is still there, and there is room now
  EXPECT_NE(LitFichierEssai(projet), avant);
  EXPECT_EQ(Modifie, Faux);
  FichierProjet.clear();
  EXPECT_EQ(umount2(disque.c_str(), MNT_DETACH), 0);
}

TEST_F(MauvaisFichiers, ASaveIntoAProjectThatMayNotBeWritten) {
  const std::string projet = Enregistre("ferme.OVL");
  const std::string avant = LitFichierEssai(projet);
  ASSERT_EQ(chmod(projet.c_str(), 0444), 0);
  TraceInitial[0].X += 1;
  Modifie = Vrai;
  Attend("F_Representation", "lib125");
  p_->Enregistre();
  EXPECT_NE(Boites().back().texte.find("Permission denied"), std::string::npos) << Boites().back().texte;
  EXPECT_EQ(LitFichierEssai(projet), avant);
  EXPECT_EQ(Modifie, Vrai);
  // Under another name it goes.
  AttendFichier("mnu_SaveAs", Dossier() + "/autre.OVL");
  QTest::keyClick(p_->Fenetre(), Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
  essai::Evenements();
  EXPECT_FALSE(LitFichierEssai(Dossier() + "/autre.OVL").empty());
}

TEST_F(MauvaisFichiers, ASaveIntoAFolderThatIsGone) {
  p_->Ouvre(bon_);
  AttendFichier("mnu_Save", Dossier() + "/absent/p.OVL");
  Attend("F_Representation", "lib125");
  p_->Enregistre();
  EXPECT_FALSE(fs::exists(Dossier() + "/absent"));
  EXPECT_EQ(FichierCourant, bon_);
  ResteUtilisable();
}

// --- drawings of other people that are refused -------------------------------------------------------------------

TEST_F(MauvaisFichiers, EveryFileOfTheCorpusOpensOrIsRefusedWithABox) {
  const std::string dossier = DossierCorpus().empty() ? DossierExemples() : DossierCorpus();
  int ouverts = 0;
  int refuses = 0;
  for (const auto& e : fs::recursive_directory_iterator(dossier)) {
    const std::string extension = ExtensionDe(e.path().string());
    // EPS and PDF go through other programs, a project has tests of its own.
    const bool lue = SeDepose(extension) && extension != "EPS" && extension != "PDF" && extension != "OVL";
    if (!lue || !e.is_regular_file() || e.file_size() > 300000) continue;
    SCOPED_TRACE(e.path().string());
    const std::string copie = Dossier() + "/copie" + std::to_string(ouverts + refuses) + "." + extension;
    fs::copy_file(e.path(), copie, fs::copy_options::overwrite_existing);
    fs::permissions(copie, fs::perms::owner_all);
    int boites = 0;
    const auto avant = Svc.Montre;
    Svc.Montre = [&boites](const BoiteMessage& b) {
      EXPECT_NE(b.texte, b.cle);
      if (b.cle == Textes::DemandeUnite.Cle()) return Reponse::Oui;  // a question is no refusal
      ++boites;
      return Reponse::Ok;
    };
    p_->Ouvre(copie);
    Svc.Montre = avant;
    const bool ouvert = FichierCourant == copie;  // a refused one leaves the drawing of before
    EXPECT_EQ(boites, ouvert ? 0 : 1);
    EXPECT_TRUE(!ouvert || NbPoints >= 2);
    ++(ouvert ? ouverts : refuses);
    if (!ouvert) ResteUtilisable();
  }
  if (CorpusPresent()) {
    EXPECT_GT(ouverts, 5);
    EXPECT_GT(refuses, 0);
  } else {  // the samples, all of them good
    EXPECT_GE(ouverts, 5);
    EXPECT_EQ(refuses, 0);
  }
}

}  // namespace
