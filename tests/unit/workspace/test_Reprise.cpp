// Killed at any moment, at most the last action is lost: a child works through every kind of command and is killed
// at a random point; what the next start finds must be one of the two states around that point.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <functional>
#include <random>

#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/Dossiers.h"
#include "core/Fichiers.h"
#include "core/LectureProjet.h"
#include "core/ReglagesCourants.h"
#include "core/Reprises.h"
#include "core/Services.h"
#include "database/Module_BD.h"
#include "tests/support/Support.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Outils.h"
#include "toolpath/Module_Sequence.h"
#include "workspace/Module_Annulation.h"
#include "workspace/Module_Enregistrement.h"
#include "workspace/Module_Ouverture.h"
#include "workspace/Module_Panneau.h"
#include "workspace/Module_Reprise.h"
#include "workspace/Module_Travail.h"

namespace {

using namespace ovelin;
using essai::Dossier;
namespace fs = std::filesystem;

// The temporary folder of the system, for the time of a test.
class Temporaire {
 public:
  Temporaire() {
    if (const char* avant = std::getenv("TMPDIR")) avant_ = avant;
    fs::create_directories(Dossier() + "/tmp");
    setenv("TMPDIR", (Dossier() + "/tmp").c_str(), 1);
  }
  ~Temporaire() { avant_.empty() ? unsetenv("TMPDIR") : setenv("TMPDIR", avant_.c_str(), 1); }
  Temporaire(const Temporaire&) = delete;
  Temporaire& operator=(const Temporaire&) = delete;

 private:
  std::string avant_;
};

// What a job is: points to the bit, records, values of the tool. One number for all of it.
class Somme {
 public:
  template <class T>
  void Ajoute(const T& v) {
    unsigned char octets[sizeof(T)];
    std::memcpy(octets, &v, sizeof v);
    for (const unsigned char o : octets) h_ = (h_ ^ o) * 1099511628211ULL;
  }
  [[nodiscard]] std::uint64_t Valeur() const { return h_; }

 private:
  std::uint64_t h_ = 1469598103934665603ULL;
};

std::uint64_t SommeDe(const Document& d, double rayon, double profondeur) {
  Somme s;
  for (const PointTrace& p : d.TraceInitial) {
    s.Ajoute(p.X);
    s.Ajoute(p.Y);
    s.Ajoute(p.Cde.Cle());
    s.Ajoute(p.Seq.Cle());
  }
  for (const SequenceInfo& f : d.Sequences) {
    s.Ajoute(f.Code.Cle());
    s.Ajoute(f.Poche != Faux);
    s.Ajoute(f.Fraiser != Faux);
    s.Ajoute(f.Decalage);
    s.Ajoute(f.Profondeur);
  }
  s.Ajoute(rayon);
  s.Ajoute(profondeur);
  return s.Valeur();
}

std::uint64_t SommeCourante() { return SommeDe(Doc, Regl.RayonFraise, Regl.ProfFraisage); }

std::uint64_t SommeFichier(const std::string& chemin) {
  const ProjetLu lu = LitProjet(chemin);
  EXPECT_FALSE(lu.refus) << chemin;
  return SommeDe(lu.document, std::stod(lu.reglages.at("RayonFraise")), std::stod(lu.reglages.at("ProfFraisage")));
}

struct Action {
  const char* nom;
  std::function<void()> fait;
};

// In the middle of the longest segment.
void AttacheAuMilieu() {
  std::size_t choisi = 1;
  double longueur = 0;
  for (std::size_t i = 1; i < TraceInitial.size(); ++i) {
    const double l = DistancePoints(TraceInitial[i - 1], TraceInitial[i]);
    if (!(TraceInitial[i].Seq == TraceInitial[i - 1].Seq) || l <= longueur) continue;
    longueur = l;
    choisi = i;
  }
  const PointTrace &a = TraceInitial[choisi - 1], &b = TraceInitial[choisi];
  AjouteAttache((a.X + b.X) / 2, (a.Y + b.Y) / 2);
}

void ChoisitPremiere() {
  DeselectionneTout();
  Sequences.front().Selection = Vrai;
  Svc.Rafraichit();
}

void Ouvre(const std::string& chemin) {
  mnu_Ouvrir(chemin, OptionsOuverture{});
  RetientTravail();
}

// Every kind of command that a user has, each once and some again, on a drawing of this product.
std::vector<Action> Actions(const std::string& dessin, const std::string& projet) {
  const auto annule = [] {
    CrochetsAnnulation c;
    c.Dessin = [] { PrendInstantane(); };
    mnu_Undo(c);
  };
  return {
      {"open", [=] { Ouvre(dessin); }},
      {"move by field", [] { Recale(12, 7); }},
      {"move by arrow", [] { Deplacement_Selection(Direction::X, 0.1F); }},
      {"turn",
       [] {
         TourneSelection(0.3, CentreSelection());
         Deplacement_Selection(Direction::Aucune, 0);
       }},
      {"mirror",
       [] {
         MiroirSelection(AxeMiroir::X);
         Deplacement_Selection(Direction::Aucune, 0);
       }},
      {"scale", [] { Dimensionne_Selection(1.1, 1.1, true); }},
      {"place", [] { Recale(5, 5); }},
      {"undo", annule},
      {"notch", [] { AttacheAuMilieu(); }},
      {"select one", ChoisitPremiere},
      {"side", [] { DecaleSelection(3); }},
      {"pocket", [] { PocheSelection(true); }},
      {"depth", [] { ProfondeurSelection(-2.5); }},
      {"delete", [] { CB_Supprimer(); }},
      {"select all", [] { SelectionneTout(), Svc.Rafraichit(); }},
      {"radius", [] { EntreRayonFraise("1.25"), Svc.Rafraichit(); }},
      {"start", [] { ChangeDepart(2); }},
      {"order",
       [] {
         ChoisitPremiere();
         ChangeOrdre(PasOrdre::PlusTard);
       }},
      {"reverse", [] { InverseSelectionnees(); }},
      {"clean-up", [] { mnu_Nettoyage_Click(0.05F), Svc.Rafraichit(); }},
      {"smooth", [] { LisseSelection(); }},
      {"material", [] { AppliqueMateriau(4); }},
      {"save", [=] { EnregistreProjet(projet); }},
      {"move again", [] { Deplacement_Selection(Direction::Y, 0.1F); }},
      {"undo again", annule},
      {"open the project", [=] { Ouvre(projet); }},
      {"turn again",
       [] {
         SelectionneTout();
         TourneSelection(-0.2, CentreSelection());
         Deplacement_Selection(Direction::Aucune, 0);
       }},
  };
}

// The child: one state a line of the pipe, told when the action is over.
[[noreturn]] void Enfant(const std::vector<Action>& actions, int journal) {
  Svc.Rafraichit = [] { PrendInstantane(); };
  Svc.Montre = [](const BoiteMessage& b) {
    return b.boutons == Boutons::Ok || b.boutons == Boutons::OkAnnuler ? Reponse::Ok : Reponse::Oui;
  };
  if (!PrepareDossierTemp()) _exit(1);
  EffaceTousInstantanes();
  for (const Action& action : actions) {
    action.fait();
    const std::uint64_t somme = SommeCourante();
    if (write(journal, &somme, sizeof somme) != sizeof somme) _exit(1);
  }
  raise(SIGKILL);
  _exit(1);
}

// Lets a child run until it has told of `etapes` actions and a moment more, and kills it. What it told comes back.
std::vector<std::uint64_t> Tue(const std::vector<Action>& actions, std::size_t etapes, long encore) {
  int tuyau[2];
  EXPECT_EQ(pipe(tuyau), 0);
  const pid_t enfant = fork();
  if (enfant == 0) {
    close(tuyau[0]);
    Enfant(actions, tuyau[1]);
  }
  close(tuyau[1]);
  std::vector<std::uint64_t> sommes;
  std::uint64_t somme = 0;
  while (sommes.size() < etapes && read(tuyau[0], &somme, sizeof somme) == sizeof somme) sommes.push_back(somme);
  struct stat etat {};
  for (long i = 0; i < encore; ++i) fstat(tuyau[0], &etat);
  kill(enfant, SIGKILL);
  while (read(tuyau[0], &somme, sizeof somme) == sizeof somme) sommes.push_back(somme);
  close(tuyau[0]);
  int statut = 0;
  waitpid(enfant, &statut, 0);
  EXPECT_TRUE(WIFSIGNALED(statut)) << "the child ended by itself: " << WEXITSTATUS(statut);
  return sommes;
}

std::size_t NombreDeMorts() {
  const char* voulu = std::getenv("OVELIN_KILLS");
  return voulu != nullptr ? std::strtoul(voulu, nullptr, 10) : 200;
}

class Mort : public testing::Test {
 protected:
  Mort() {
    EcritFichesDefaut();
    Regl.ConfirmSuppr = false;
    fs::copy_file(essai::DossierExemples() + "/equerre.dxf", dessin_);
    actions_ = Actions(dessin_, projet_);
    reglages_ = essai::LitFichierEssai(CheminIni());
  }
  // Each life begins alike: a material that one has chosen stands in the settings file.
  void Renait() const {
    fs::remove(projet_);
    essai::EcritFichierEssai("OVELIN.ini", reglages_);
  }
  // What the next start finds, and takes away again.
  static std::vector<Reprise> Recueille() {
    EXPECT_TRUE(RecueilleReprises());
    return ListeReprises();
  }
  static void Vide(const std::vector<Reprise>& reprises) {
    for (const Reprise& r : reprises) OteReprise(r);
  }

  const Temporaire temporaire_;
  const std::string dessin_ = Dossier() + "/equerre.dxf";
  const std::string projet_ = Dossier() + "/equerre.OVL";
  std::vector<Action> actions_;
  std::string reglages_;
};

TEST_F(Mort, EveryActionChangesTheJobOrIsTold) {
  const std::vector<std::uint64_t> sommes = Tue(actions_, actions_.size(), 0);
  ASSERT_EQ(sommes.size(), actions_.size());
  for (std::size_t i = 1; i < sommes.size(); ++i) {
    const std::string nom = actions_[i].nom;
    const bool meme = nom.starts_with("select") || nom == "save" || nom == "open the project";
    EXPECT_EQ(sommes[i] == sommes[i - 1], meme) << nom;
  }
  Vide(Recueille());
}

TEST_F(Mort, AtMostTheLastActionIsLost) {
  const std::vector<std::uint64_t> toutes = Tue(actions_, actions_.size(), 0);
  ASSERT_EQ(toutes.size(), actions_.size());
  Vide(Recueille());
  std::minstd_rand hasard(20261122);
  for (std::size_t mort = 0; mort < NombreDeMorts(); ++mort) {
    Renait();
    const std::size_t etapes = hasard() % actions_.size();
    const long encore = static_cast<long>(hasard() % 4000);
    const std::size_t faites = Tue(actions_, etapes, encore).size();
    const std::vector<Reprise> reprises = Recueille();
    SCOPED_TRACE("death " + std::to_string(mort) + " behind action " + std::to_string(faites));
    // While a drawing is opened the job before it is gone, as its user has agreed, and the file is there.
    const std::string enCours = faites < actions_.size() ? actions_[faites].nom : "";
    if (reprises.empty()) {
      EXPECT_TRUE(enCours.starts_with("open")) << enCours;
      continue;
    }
    ASSERT_EQ(reprises.size(), 1U);
    const std::uint64_t somme = SommeFichier(reprises[0].fichier);
    const bool avant = faites > 0 && somme == toutes[faites - 1];
    const bool apres = faites < toutes.size() && somme == toutes[faites];
    EXPECT_TRUE(avant || apres) << enCours;
    EXPECT_TRUE(reprises[0].dessin == dessin_ || reprises[0].dessin == projet_) << reprises[0].dessin;
    Vide(reprises);
  }
}

// A folder of a dead process with these snapshots.
void LaisseMort(const std::vector<std::pair<std::string, std::string>>& fichiers,
                const std::string& numero = "77") {
  const std::string base = "tmp/ovelin-" + std::to_string(geteuid());
  fs::create_directories(Dossier() + "/" + base + "/" + numero);
  for (const auto& [nom, octets] : fichiers) essai::EcritFichierEssai(base + "/" + numero + "/" + nom, octets);
}

const std::string DeuxPoints =
    "$$RayonFraise=1.5\r\n$$Seq A0010-3\r\n$$SeD1\r\n"
    "1              2              PD              A\r\n"
    "11             2              PD              A\r\n$$Mat01 5\r\n$$Mat02 0\r\n";

TEST_F(Mort, TheNewestSnapshotThatIsWholeIsKeptWithItsName) {
  const std::string coupe = DeuxPoints.substr(0, DeuxPoints.size() - 40);
  LaisseMort(
      {{"00001.OVL", "vieux"}, {"00002.OVL", DeuxPoints}, {"00003.OVL", coupe}, {"dessin", "/a/plaque.dxf"}});
  const std::vector<Reprise> reprises = Recueille();
  ASSERT_EQ(reprises.size(), 1U);
  EXPECT_EQ(essai::LitFichierEssai(reprises[0].fichier), DeuxPoints);
  EXPECT_EQ(reprises[0].dessin, "/a/plaque.dxf");
  EXPECT_NE(ExtensionDe(reprises[0].fichier), "OVL");
}

TEST_F(Mort, NothingIsKeptOfAProcessWithoutADrawing) {
  LaisseMort({{"00001.OVL", "rien\r\n"}});
  EXPECT_TRUE(Recueille().empty());
}

TEST_F(Mort, EachDeadProcessLeavesItsOwn) {
  LaisseMort({{"00001.OVL", DeuxPoints}, {"dessin", "/a"}}, "77");
  LaisseMort({{"00001.OVL", DeuxPoints}, {"dessin", "/b"}}, "78");
  EXPECT_EQ(Recueille().size(), 2U);
  // Another start finds them again, and nothing twice.
  EXPECT_EQ(Recueille().size(), 2U);
}

TEST_F(Mort, RecoveredWorkComesBackAsChangedWorkUnderItsName) {
  LaisseMort({{"00001.OVL", DeuxPoints}, {"dessin", "/a/plaque.dxf"}});
  const std::vector<Reprise> reprises = Recueille();
  ASSERT_EQ(reprises.size(), 1U);
  Svc.Rafraichit = [] { PrendInstantane(); };
  EXPECT_EQ(OuvreReprise(reprises[0]), Ouverture::Reussie);
  EXPECT_EQ(NbPoints, 2);
  EXPECT_EQ(TraceInitial.at(1).X, 11.0F);
  EXPECT_EQ(RayonFraise, 1.5);
  EXPECT_EQ(FichierCourant, "/a/plaque.dxf");
  EXPECT_EQ(FichierProjet, "Chargt");
  EXPECT_TRUE(TravailChange());
  EXPECT_TRUE(ListeReprises().empty());
  EXPECT_EQ(essai::LitFichierEssai(DossierTemp + "/dessin"), "/a/plaque.dxf");
}

TEST_F(Mort, RecoveredWorkWaitsUntilAnotherSnapshotStands) {
  LaisseMort({{"00001.OVL", DeuxPoints}});
  const std::vector<Reprise> reprises = Recueille();
  ASSERT_EQ(reprises.size(), 1U);
  EXPECT_EQ(OuvreReprise(reprises[0]), Ouverture::Reussie);
  EXPECT_EQ(ListeReprises().size(), 1U);
  PrendInstantane();
  EXPECT_TRUE(ListeReprises().empty());
}

TEST_F(Mort, RecoveredWorkLeftBeforeASnapshotIsKept) {
  LaisseMort({{"00001.OVL", DeuxPoints}});
  const std::vector<Reprise> reprises = Recueille();
  ASSERT_EQ(reprises.size(), 1U);
  EXPECT_EQ(OuvreReprise(reprises[0]), Ouverture::Reussie);
  EffaceTousInstantanes();
  PrendInstantane();
  EXPECT_EQ(ListeReprises().size(), 1U);
}

}  // namespace
