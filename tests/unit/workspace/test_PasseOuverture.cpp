// An opening beside a live window. Its kernels run on a thread while this thread looks at the document as a
// painting window does. Its tool path may be ended: what the user takes back is as before in the document, in the
// settings, in the files and in the steps of undo; what he doesn't is the opening without a pass, to the byte.
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <filesystem>
#include <functional>
#include <map>
#include <new>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/Dossiers.h"
#include "core/Fichiers.h"
#include "core/Projet.h"
#include "core/ReglagesCourants.h"
#include "core/Reprises.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "core/Traduction.h"
#include "database/Module_BD.h"
#include "machine/Module_Table.h"
#include "machine/TableCourante.h"
#include "tests/support/PasseEcrite.h"
#include "tests/support/Support.h"
#include "tests/unit/workspace/DessinsOuverts.h"
#include "toolpath/ChampsOutil.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Sequence.h"
#include "toolpath/traces/Bibliotheque.h"
#include "workspace/Module_Annulation.h"
#include "workspace/Module_Ouverture.h"
#include "workspace/Module_Recents.h"
#include "workspace/Module_Reprise.h"
#include "workspace/Module_Travail.h"

namespace {

using namespace ovelin;
using namespace essai;

// What a window does in a round of events: paints the document, asks for a text and a key.
long Regarde() {
  long vus = 0;
  for (const PointTrace& p : TraceInitial) vus += p.X > 0 ? 1 : 0;
  for (const SequenceDecalee& d : TraceDecale) vus += static_cast<long>(d.Points.size());
  for (const SequenceInfo& s : Sequences) vus += s.Selection;
  return vus + static_cast<long>(Traduire("erreurs", "100").size() + LireCle("MRUFiles1", "").size()) + NbPoints;
}

int Rondes = 0;
void OffreDesFils() {
  Rondes = 0;
  Svc.EnFond = [](const std::function<void()>& noyau) {
    std::atomic<bool> fini = false;
    std::thread fil([&] {
      noyau();
      fini = true;
    });
    do {
      Regarde();
      ++Rondes;
    } while (!fini);
    fil.join();
  };
}

// Three wavy contours, the first one large.
std::string DxfOndule() {
  std::string t = "0\r\nSECTION\r\n2\r\nENTITIES\r\n";
  const int tailles[] = {25000, 400, 30};
  for (int c = 0; c < 3; ++c) {
    t += "0\r\nLWPOLYLINE\r\n8\r\n0\r\n70\r\n1\r\n90\r\n" + std::to_string(tailles[c]) + "\r\n";
    for (int i = 0; i < tailles[c]; ++i) {
      const double a = 2 * M_PI * i / tailles[c];
      const double r = 80 + 8 * std::sin(60 * a);
      t += "10\r\n" + std::to_string(100 + 200 * c + r * std::cos(a)) + "\r\n20\r\n" +
           std::to_string(100 + r * std::sin(a)) + "\r\n";
    }
  }
  return t + "0\r\nENDSEC\r\n0\r\nEOF\r\n";
}

TEST(EnFond, OpensTheSameDrawingBesideAPaintingWindow) {
  const std::string dessin = EcritFichierEssai("grand.dxf", DxfOndule());
  ASSERT_EQ(mnu_Ouvrir(dessin, OptionsOuverture{}), Ouverture::Reussie);
  const Document direct = Doc;
  ASSERT_GT(direct.TraceInitial.size(), 4000U);
  Doc = Document{};
  OffreDesFils();
  ASSERT_EQ(mnu_Ouvrir(dessin, OptionsOuverture{}), Ouverture::Reussie);
  EXPECT_GT(Rondes, 3);  // line ends, reading, clean-up, offset
  EXPECT_EQ(TraceInitial, direct.TraceInitial);
  EXPECT_EQ(Sequences, direct.Sequences);
  EXPECT_EQ(TraceDecale, direct.TraceDecale);
  EXPECT_EQ(Xmax, direct.Xmax);
}

TEST(EnFond, SavesAndOpensTheSameProjectBesideAPaintingWindow) {
  const std::string dessin = EcritFichierEssai("grand.dxf", DxfOndule());
  ASSERT_EQ(mnu_Ouvrir(dessin, OptionsOuverture{}), Ouverture::Reussie);
  const Document direct = Doc;
  OffreDesFils();
  const std::string projet = Dossier() + "/grand.OVL";
  ASSERT_EQ(EnregistreProjet(projet), "");
  EXPECT_GT(Rondes, 0);
  Doc = Document{};
  ASSERT_EQ(mnu_Ouvrir(projet, OptionsOuverture{}), Ouverture::Reussie);
  EXPECT_EQ(TraceInitial, direct.TraceInitial);
  EXPECT_EQ(Sequences, direct.Sequences);
  EXPECT_EQ(TraceDecale, direct.TraceDecale);
}

TEST(EnFond, TellsARefusalAsItDoesDirectly) {
  OffreDesFils();
  Attend("F_Representation", "lib115");
  EXPECT_EQ(mnu_Ouvrir(EcritFichierEssai("texte.dxf", "Bonjour\r\n"), OptionsOuverture{}), Ouverture::Refusee);
  Attend("F_Representation", "lib110");
  EXPECT_EQ(mnu_Ouvrir(Dossier(), OptionsOuverture{}), Ouverture::Refusee);
}

constexpr int PointsPoche = 5000;       // of a pocket that is worth a pass, in a project that is worth a thread
constexpr int PointsContour = 51000;    // of an outline that is
constexpr double RayonContour = 300.0;  // mm

std::vector<std::pair<double, double>> Cercle(double x, double r, int n) {
  std::vector<std::pair<double, double>> xy;
  for (int i = 0; i < n; ++i) {
    const double a = -2 * M_PI * i / n;
    xy.emplace_back(x + r * std::cos(a), x + r * std::sin(a));
  }
  return xy;
}

std::string EnLignesSimples(std::string texte) {
  std::erase(texte, '\r');
  return texte;
}

struct Etat {
  Document document;
  Reglages reglages;
  TableMachine table;
  std::string materiau;
  std::vector<std::string> recents;
  std::map<std::string, std::string> fichiers;  // of the whole folder, by path
  int pas = 0, aRefaire = 0, present = 0;
  std::size_t historique = 0;
  bool change = false;
  std::string suppose;
};

Etat Present() {
  Etat e{Doc, Regl,  Table, MateriauCourant, Recents.chemins, {}, NumeroInstantane(), PasARefaire(), 0,
         0,   false, ""};
  for (const auto& f : std::filesystem::recursive_directory_iterator(Dossier())) {
    if (f.is_regular_file()) e.fichiers[f.path().string()] = LitFichierEssai(f.path().string());
  }
  e.present = HistoriqueCourant().present;
  e.historique = HistoriqueCourant().pas.size();
  e.change = TravailChange();
  e.suppose = RapportOuvert().Format;
  return e;
}

void Compare(const Etat& a, const Etat& b) {
  EXPECT_TRUE(a.document == b.document);
  EXPECT_TRUE(a.reglages == b.reglages);
  EXPECT_EQ(a.table.CourseX, b.table.CourseX);
  EXPECT_EQ(a.materiau, b.materiau);
  EXPECT_EQ(a.recents, b.recents);
  EXPECT_EQ(a.pas, b.pas);
  EXPECT_EQ(a.aRefaire, b.aRefaire);
  EXPECT_EQ(a.present, b.present);
  EXPECT_EQ(a.historique, b.historique);
  EXPECT_EQ(a.change, b.change);
  EXPECT_EQ(a.suppose, b.suppose);
  ASSERT_EQ(a.fichiers.size(), b.fichiers.size());
  for (const auto& [chemin, octets] : a.fichiers) {
    ASSERT_TRUE(b.fichiers.contains(chemin)) << chemin;
    EXPECT_TRUE(b.fichiers.at(chemin) == octets) << chemin;
  }
}

// A drawing with steps of undo and redo and unsaved work is open; another one, worth a pass, is opened: by its
// extension a foreign drawing or a project with a tool of its own.
class PasseOuverture : public testing::TestWithParam<const char*> {
 protected:
  void SetUp() override {
    Crochets.ChargeTable = [] { ChargeGlobalesTable(); };
    Crochets.ChercheMateriau = [] { ChercheFiche(); };
    Biblio.DecalSequence = [](Bibliotheque::Points& p, float, float d, std::int32_t) {
      for (PointTrace& q : p) q.X += d;
      return 1;
    };
    Biblio.NettoyageFichier = [](Bibliotheque::Points& p, float) { return static_cast<std::int32_t>(p.size()); };
    std::filesystem::create_directories(Dossier() + "/temp");
    DossierTemp = Dossier() + "/temp";
    EcritFichesDefaut();
    EcritMateriau();
    EcritOutil();
    EcritOptions();
    dessin_ = GetParam() == std::string("OVL") ? EcritGrandProjet() : EcritGrandDessin();
    octets_ = LitFichierEssai(dessin_);
    Pose();
  }
  static std::string EcritGrandDessin() {
    return EcritFichierEssai("grand.dxf", EnLignesSimples(Dxf({{true, Cercle(400, RayonContour, PointsContour)}})));
  }
  static std::string EcritGrandProjet() {
    std::vector<std::pair<float, float>> xy;
    for (const auto& [x, y] : Cercle(50, 40, PointsPoche)) {
      xy.emplace_back(static_cast<float>(x), static_cast<float>(y));
    }
    xy.push_back(xy.front());
    AjouteSequence(" A", xy);
    Sequences.back().Poche = Vrai;
    NbPoints = static_cast<std::int32_t>(TraceInitial.size());
    const Reglages garde = Regl;
    LargeurEncoche = 7;
    RayonFraise = 1.25;
    const std::string chemin = Dossier() + "/grand.OVL";
    EXPECT_EQ(EnregistreProjet(chemin), "");
    EcritFichierEssai("grand.OVL", EnLignesSimples(LitFichierEssai(chemin)));
    Regl = garde;
    FichierProjet.clear();
    EcritOutil();
    return chemin;
  }
  // As a window: what an opening leaves on its way is no step of undo.
  void Fenetre() {
    Svc.DessinOuvert = [this](bool ouvert) { ouverture_ = !ouvert; };
    SvcPasse.SePeut = [this] { return !ouverture_; };
    SvcPasse.ChangementRepris = [this] {
      ++passe_.repris;
      ouverture_ = false;
    };
    Svc.Rafraichit = [this] {
      if (ouverture_) return;
      ++passe_.rafraichis;
      PrendInstantane();
    };
    ouverture_ = false;
  }
  // From a settings file and a drawing that are always the same.
  void Pose() {
    EffaceTousInstantanes();
    Doc = Document{};
    Regl = Reglages{};
    ChargeGlobalesTable();
    OublieCles();
    if (ini_.empty()) ini_ = LitFichierEssai(CheminIni());
    EcritFichierEssai("OVELIN.ini", ini_);
    EcritFichierEssai(NomDe(dessin_), octets_);
    LitReglagesDocument();
    MateriauCourant = "Alu 2 mm";
    Recents.chemins = {"/avant.dxf"};
    passe_.Remet();
    passe_.Offre();
    Fenetre();
    Svc.FichierRecent = AjouteRecent;
    PasseEcrite::Refuse();
    OptionsOuverture options;
    options.retient = true;
    ASSERT_EQ(mnu_Ouvrir(EcritFichierEssai("petit.dxf", CarreDxf), options), Ouverture::Reussie);
    for (int pas = 0; pas < 2; ++pas) {
      for (PointTrace& p : TraceInitial) p.X += 3;
      EncombrementGeneral();
      RecalculDecalages();
      PrendInstantane();
    }
    const CrochetsAnnulation crochets{{}, {}, {}, [] { PrendInstantane(); }};
    ASSERT_TRUE(mnu_Undo(crochets).fait);
    Modifie = Vrai;
    Table.CourseX += 1;
    passe_.rafraichis = 0;
    passe_.Offre();
    Fenetre();
  }
  Ouverture OuvreGrand() {
    OptionsOuverture options;
    options.retient = true;
    return mnu_Ouvrir(dessin_, options);
  }
  [[nodiscard]] bool Projet() const { return EstProjet(dessin_); }

  PasseEcrite passe_;
  std::string dessin_, octets_, ini_;
  bool ouverture_ = false;
};

TEST_P(PasseOuverture, EndsAsTheOpeningWithoutAPassToTheByte) {
  PasseEcrite::Refuse();
  ASSERT_EQ(OuvreGrand(), Ouverture::Reussie);
  const Etat attendu = Present();
  EXPECT_EQ(passe_.rafraichis, 1);
  Pose();
  ASSERT_EQ(OuvreGrand(), Ouverture::Reussie);
  EXPECT_EQ(passe_.passes, 1);
  EXPECT_EQ(passe_.rafraichis, 1);
  Compare(Present(), attendu);
  EXPECT_EQ(NumeroInstantane(), 1);
  EXPECT_EQ(LireCleIni("Fichier", ""), dessin_);
  EXPECT_EQ(Recents.chemins, (std::vector<std::string>{dessin_, Dossier() + "/petit.dxf", "/avant.dxf"}));
  EXPECT_NE(LitFichierEssai(dessin_).find("\r\n"), std::string::npos);
  EXPECT_FALSE(TravailChange());
}

TEST_P(PasseOuverture, ShowsTheDrawingBeforeItsToolPathAndDestroysNothingUntilThatStands) {
  const Etat avant = Present();
  bool vu = false;
  passe_.script = {[&] {
    vu = true;
    EXPECT_EQ(passe_.montrees.size(), static_cast<std::size_t>(Projet() ? PointsPoche : PointsContour) + 1);
    EXPECT_TRUE(passe_.montrees == TraceInitial);
    EXPECT_EQ(passe_.tracesMontrees, 0U);
    EXPECT_EQ(RayonFraise, Projet() ? 1.25 : avant.reglages.RayonFraise);
    const Etat pendant = Present();
    EXPECT_TRUE(pendant.fichiers == avant.fichiers);
    EXPECT_EQ(pendant.recents, avant.recents);
    EXPECT_EQ(pendant.pas, avant.pas);
    return false;
  }};
  ASSERT_EQ(OuvreGrand(), Ouverture::Reussie);
  EXPECT_TRUE(vu);
  EXPECT_FALSE(passe_.seule) << "a field of the tool may be typed in";
  EXPECT_TRUE(passe_.sansFleches) << "an arrow is a step of its own";
}

TEST_P(PasseOuverture, TakenBackLeavesAllAsItWas) {
  const Etat avant = Present();
  ASSERT_EQ(avant.pas, 2);
  ASSERT_EQ(avant.aRefaire, 1);
  ASSERT_TRUE(avant.change);
  passe_.script = {[] { return true; }};
  EXPECT_EQ(OuvreGrand(), Ouverture::Abandon);
  EXPECT_EQ(passe_.repris, 1);
  EXPECT_EQ(passe_.rafraichis, 0);
  Compare(Present(), avant);
  const CrochetsAnnulation crochets{{}, {}, {}, [] { PrendInstantane(); }};
  const float x = TraceInitial[0].X;
  EXPECT_TRUE(mnu_Redo(crochets).fait);
  EXPECT_EQ(TraceInitial[0].X, x + 3);
}

TEST_P(PasseOuverture, TakenBackLeavesNothingOfTheFieldsThatWereTypedIn) {
  for (const auto& tape :
       {std::function<void()>([] { EntreRayonFraise("2"); }),
        std::function<void()>([] { EntreLargeurEncoche("9"); }), std::function<void()>([] { EntrePCPoche("20"); }),
        std::function<void()>([] { EntreProfPasse("-4"); })}) {
    const Etat avant = Present();
    passe_.Remet();
    passe_.script = {[&] {
      tape();
      return true;
    }};
    EXPECT_EQ(OuvreGrand(), Ouverture::Abandon);
    Compare(Present(), avant);
  }
}

TEST_P(PasseOuverture, TakenBackInTheSecondKernelLeavesAllAsItWas) {
  const Etat avant = Present();
  passe_.script = {[] {
                     EntreLargeurEncoche("9");
                     return false;
                   },
                   [] { return true; }};
  EXPECT_EQ(OuvreGrand(), Ouverture::Abandon);
  EXPECT_EQ(passe_.passes, 2);
  Compare(Present(), avant);
}

TEST_P(PasseOuverture, ItsReadingTakenBackLeavesAllAsItWas) {
  const Etat avant = Present();
  passe_.OffreLectures();
  passe_.lecture = [] { return true; };
  EXPECT_EQ(OuvreGrand(), Ouverture::Abandon);
  EXPECT_EQ(passe_.lectures, 1);
  EXPECT_EQ(passe_.passes, 0);
  EXPECT_EQ(passe_.repris, 1);
  EXPECT_EQ(passe_.rafraichis, 0);
  Compare(Present(), avant);
}

TEST_P(PasseOuverture, AReadingThatIsNotTakenBackIsTheDrawing) {
  ASSERT_EQ(OuvreGrand(), Ouverture::Reussie);
  const Etat attendu = Present();
  Pose();
  passe_.OffreLectures();
  ASSERT_EQ(OuvreGrand(), Ouverture::Reussie);
  EXPECT_EQ(passe_.lectures, 1);
  Compare(Present(), attendu);
}

TEST_P(PasseOuverture, AReadingAheadOfTheOpeningMayBeTakenBackWhereNothingElseIsAtWork) {
  passe_.OffreLectures();
  passe_.lecture = [] { return true; };
  EXPECT_TRUE(LitAOuvrir(dessin_).renonce);
  ouverture_ = true;
  EXPECT_FALSE(LitAOuvrir(dessin_).renonce);
  EXPECT_EQ(passe_.lectures, 1);
}

TEST_P(PasseOuverture, AFieldOfTheToolBeginsItAnewAndIsWhatItIsBehindIt) {
  PasseEcrite::Refuse();
  ASSERT_EQ(OuvreGrand(), Ouverture::Reussie);
  ASSERT_TRUE(EntreRayonFraise("2"));
  ASSERT_TRUE(EntreLargeurEncoche("9"));
  const Etat attendu = Present();
  ASSERT_TRUE(attendu.change);
  const auto placees = ClesPlacees();

  Pose();
  passe_.script = {[] {
                     EXPECT_TRUE(EntreRayonFraise("2"));
                     return false;
                   },
                   [] {
                     EXPECT_TRUE(EntreLargeurEncoche("9"));
                     return false;
                   }};
  ASSERT_EQ(OuvreGrand(), Ouverture::Reussie);
  EXPECT_EQ(passe_.passes, 3) << "two that were ended, and that of all";
  EXPECT_EQ(passe_.rafraichis, 1);
  EXPECT_EQ(NumeroInstantane(), 1);
  Etat obtenu = Present();
  obtenu.document.FichierInstantane = attendu.document.FichierInstantane;  // of the last step, whatever its number
  EXPECT_TRUE(obtenu.document == attendu.document);
  EXPECT_TRUE(obtenu.reglages == attendu.reglages);
  EXPECT_EQ(obtenu.fichiers.at(CheminIni()), attendu.fichiers.at(CheminIni()));
  EXPECT_TRUE(obtenu.fichiers.at(dessin_) == attendu.fichiers.at(dessin_));
  EXPECT_TRUE(obtenu.change) << "no file holds it as it is";
  EXPECT_EQ(ClesPlacees(), placees);
}

TEST_P(PasseOuverture, WantOfMemoryOnTheWayLeavesTheDrawingOfBefore) {
  const Etat avant = Present();
  Biblio.DecalSequence = [](Bibliotheque::Points&, float, float, std::int32_t) -> std::int32_t {
    throw std::bad_alloc();
  };
  EXPECT_THROW(OuvreGrand(), std::bad_alloc);
  EXPECT_EQ(passe_.repris, 1);
  Compare(Present(), avant);
}

TEST_P(PasseOuverture, AnOpeningWithoutTheListKeepsItOutOfThePassToo) {
  OptionsOuverture options;
  options.ecritFichier = false;
  options.rendUniforme = false;
  const std::string cle = LireCleIni("Fichier", "");
  ASSERT_EQ(OuvreDessinLu(LitAOuvrir(dessin_), options), Ouverture::Reussie);
  EXPECT_EQ(passe_.passes, 1);
  EXPECT_EQ(LireCleIni("Fichier", ""), cle);
  EXPECT_EQ(Recents.chemins.size(), 2U);
  EXPECT_TRUE(LitFichierEssai(dessin_) == octets_);
  EXPECT_EQ(NumeroInstantane(), 1);
}

INSTANTIATE_TEST_SUITE_P(, PasseOuverture, testing::Values("DXF", "OVL"),
                         [](const auto& parametre) { return std::string(parametre.param); });

class PasseOuverturePetite : public PasseOuverture {};

TEST_P(PasseOuverturePetite, ASmallDrawingNeedsNoPass) {
  ASSERT_EQ(mnu_Ouvrir(EcritFichierEssai("c.dxf", CarreDxf), OptionsOuverture{}), Ouverture::Reussie);
  EXPECT_EQ(passe_.passes, 0);
  EXPECT_EQ(passe_.rafraichis, 1);
  EXPECT_EQ(NumeroInstantane(), 1);
  EXPECT_EQ(LireCleIni("Fichier", ""), Dossier() + "/c.dxf");
  EXPECT_EQ(TraceDecale.size(), 1U);
}

TEST_P(PasseOuverturePetite, WantOfMemoryInTheSizeDialogLeavesTheDrawingOfBefore) {
  const Etat avant = Present();
  Svc.Dimensionne = [](DemandeDimension&) { throw std::bad_alloc(); };
  EXPECT_THROW(OuvreGrand(), std::bad_alloc);
  EXPECT_EQ(passe_.repris, 1);
  Compare(Present(), avant);
}

TEST_P(PasseOuverturePetite, RecoveredWorkThatIsTakenBackIsOfferedAgain) {
  const Document garde = std::exchange(Doc, Document{});
  const Reprise reprise{EcritGrandProjet() + ".reprise", "/avant/pris.dxf", {}};
  std::filesystem::rename(Dossier() + "/grand.OVL", reprise.fichier);
  Doc = garde;
  const Etat avant = Present();
  passe_.script = {[] { return true; }};
  EXPECT_EQ(OuvreReprise(reprise), Ouverture::Abandon);
  EXPECT_EQ(passe_.repris, 1);
  Compare(Present(), avant);
}

TEST_P(PasseOuverturePetite, AFaultThatIsFoundInAReadingTakenBackIsToldToNobody) {
  const std::string faute = EcritFichierEssai("texte.dxf", "Bonjour\nle monde\n");
  const Etat avant = Present();
  passe_.OffreLectures();
  passe_.lecture = [] { return true; };
  EXPECT_EQ(mnu_Ouvrir(faute, OptionsOuverture{}), Ouverture::Abandon);
  Compare(Present(), avant);
}

TEST_P(PasseOuverturePetite, ADrawingThatIsReadAnewForItsUnitMayStillBeTakenBack) {
  const std::string svg = EcritFichierEssai(
      "u.svg", "<svg xmlns='http://www.w3.org/2000/svg' width='24' height='24'><path d='M1 1H9V9H1Z'/></svg>");
  const Etat avant = Present();
  passe_.OffreLectures();
  passe_.lecture = [] { return true; };
  EXPECT_EQ(mnu_Ouvrir(svg, OptionsOuverture{}), Ouverture::Abandon) << "and asks for no unit";
  passe_.lectures = 0;
  passe_.lecture = [this] { return passe_.lectures == 2; };
  Attend(std::string(Textes::DemandeUnite.Section()), std::string(Textes::DemandeUnite.Cle()), Reponse::Oui);
  EXPECT_EQ(mnu_Ouvrir(svg, OptionsOuverture{}), Ouverture::Abandon);
  EXPECT_EQ(passe_.lectures, 2);
  Compare(Present(), avant);
}

// As without a window: the key and the list know the file, and the steps of the drawing before are gone.
TEST_P(PasseOuverturePetite, AFaultyFileThatIsReadOnTheWayEndsAsWithoutAPass) {
  const std::string faute = EcritFichierEssai("texte.dxf", "Bonjour\nle monde\n");
  PasseEcrite::Refuse();
  Attend("F_Representation", "lib115");
  ASSERT_EQ(mnu_Ouvrir(faute, OptionsOuverture{}), Ouverture::Refusee);
  const Etat attendu = Present();
  EXPECT_EQ(attendu.recents.front(), faute);
  EXPECT_EQ(attendu.pas, 0);
  EcritFichierEssai("texte.dxf", "Bonjour\nle monde\n");
  Pose();
  Attend("F_Representation", "lib115");
  ASSERT_EQ(mnu_Ouvrir(faute, OptionsOuverture{}), Ouverture::Refusee);
  EXPECT_EQ(passe_.passes, 0);
  EXPECT_EQ(passe_.repris, 0);
  Compare(Present(), attendu);
}

INSTANTIATE_TEST_SUITE_P(, PasseOuverturePetite, testing::Values("DXF"),
                         [](const auto& parametre) { return std::string(parametre.param); });

}  // namespace
