// A change whose tool path is computed beside the window: what comes meanwhile, what is taken back, what is in
// force. The worker is a script: it says when the kernel runs and what the user does before it does.
#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>
#include <deque>
#include <functional>
#include <new>

#include "core/Cles.h"
#include "core/Coeurs.h"
#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "core/ServicesPasse.h"
#include "tests/support/Support.h"
#include "toolpath/ChampsOutil.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Sequence.h"
#include "toolpath/Module_Transforme.h"
#include "toolpath/PasseTraces.h"
#include "toolpath/traces/Bibliotheque.h"

using namespace ovelin;
using namespace essai;

namespace {

constexpr int NombreChemins = 6;

// A document as far as a pass changes it.
struct Etat {
  std::vector<PointTrace> points;
  std::vector<SequenceInfo> fiches;
  std::vector<SequenceDecalee> traces;
  std::array<float, 4> bornes{};
  Drapeau modifie = Faux;
  double rayon = 0, encoche = 0;
  std::int16_t recouvrement = 0;
  bool operator==(const Etat&) const = default;
};
Etat EtatCourant() {
  return {TraceInitial, Sequences,   TraceDecale,    {Xmin, Xmax, Ymin, Ymax},
          Modifie,      RayonFraise, LargeurEncoche, PCPoche};
}

class PasseTracesTest : public testing::Test {
 protected:
  void SetUp() override {
    RayonFraise = 1.5;
    PCPoche = 40;
    for (int k = 0; k < NombreChemins; ++k)
      AjouteVague(std::string(" ") + static_cast<char>('A' + k), 60.0F * static_cast<float>(k));
    EncombrementGeneral();
    RecalculDecalages();
    ASSERT_EQ(Modifie, Faux);
    debut_ = EtatCourant();
    EcritSansTrajet();
  }
  // A wavy pocket of 480 points: six of them weigh more than SeuilPasse.
  static void AjouteVague(const std::string& code, float x) {
    std::vector<std::pair<float, float>> xy;
    constexpr int n = 480;
    for (int i = 0; i <= n; ++i) {
      const double a = 2 * M_PI * (i % n) / n;
      const double r = 12 + 0.5 * std::sin(24 * a);
      xy.emplace_back(x + static_cast<float>(r * std::cos(a)), static_cast<float>(r * std::sin(a)));
    }
    AjouteSequence(code, xy);
    Sequences.back().Poche = Vrai;
    Sequences.back().Selection = Vrai;
  }
  // The services of a window. Each pass takes the next step of the script: what the user does before the kernel
  // runs, and whether that is Escape.
  void EcritSansTrajet() {
    SvcPasse.Jusque = [this](const PasseInterruptible& passe) {
      ++passes;
      courante = &passe;
      bool echappe = false;
      if (!script.empty()) {
        const auto pas = std::move(script.front());
        script.pop_front();
        echappe = pas();
      }
      passe.noyau();
      passe.pouls();
      courante = nullptr;
      return std::exchange(echappee, false) || echappe;
    };
    SvcPasse.MontreSansTrajet = [this] {
      ++montres;
      tracesMontrees += TraceDecale.size();
      abscisses.push_back(TraceInitial[0].X);
    };
    SvcPasse.ChangementRepris = [this] { ++repris; };
    Svc.Rafraichit = [this] { ++rafraichis; };
  }
  // Escape, as the window tells it.
  void Echappe() {
    courante->arrete();
    echappee = true;
  }
  void CompteAppels(int& appels) {
    Biblio.DecalSequence = [&appels, biblio = Biblio.DecalSequence](Bibliotheque::Points& p, float t, float d,
                                                                    std::int32_t r) {
      ++appels;
      return biblio(p, t, d, r);
    };
  }

  Etat debut_;
  std::deque<std::function<bool()>> script;
  const PasseInterruptible* courante = nullptr;
  bool echappee = false;
  int passes = 0, montres = 0, repris = 0, rafraichis = 0;
  std::size_t tracesMontrees = 0;
  std::vector<float> abscisses;  // of the first point, as each picture showed it
};

}  // namespace

TEST_F(PasseTracesTest, TenPressesOfAnArrowAreOnePassAndTheSameToTheByte) {
  SvcPasse.Jusque = nullptr;
  for (int i = 0; i < 10; ++i) Deplacement_Selection(Direction::X, 0.1F);
  ASSERT_EQ(rafraichis, 10);
  const Etat attendu = EtatCourant();
  ASSERT_NE(attendu.traces, debut_.traces);

  TraceInitial = debut_.points;
  TraceDecale = debut_.traces;
  Modifie = Faux;
  rafraichis = 0;
  EcritSansTrajet();
  int appels = 0;
  CompteAppels(appels);
  script = {[] {
    for (int i = 0; i < 9; ++i) EXPECT_TRUE(Deplacement_Selection(Direction::X, 0.1F));
    return false;
  }};
  EXPECT_TRUE(Deplacement_Selection(Direction::X, 0.1F));
  EXPECT_EQ(EtatCourant(), attendu);
  EXPECT_EQ(passes, 2) << "the one of the first press, which ended, and that of all";
  EXPECT_EQ(appels, NombreChemins) << "each path once";
  EXPECT_EQ(rafraichis, 1);
  EXPECT_EQ(repris, 0);
}

TEST_F(PasseTracesTest, ThePictureShowsTheDrawingOfTheMomentAndNoTraceOfBefore) {
  script = {[] { return !Deplacement_Selection(Direction::X, 2); }};
  const float x = TraceInitial[0].X;
  EXPECT_TRUE(Deplacement_Selection(Direction::X, 1));
  EXPECT_EQ(abscisses, (std::vector<float>{x + 1, x + 1 + 2}));
  EXPECT_EQ(tracesMontrees, 0U);
  EXPECT_FALSE(TraceDecale.empty());
}

TEST_F(PasseTracesTest, EscapeBringsDrawingAndTracesBackAtWhicheverPathItComes) {
  const auto biblio = Biblio.DecalSequence;
  for (const unsigned coeurs : {1U, 3U}) {
    NombreCoeurs = coeurs;
    for (int k = 0; k < NombreChemins; ++k) {
      std::atomic<int> appels{0};
      Biblio.DecalSequence = [&](Bibliotheque::Points& p, float t, float d, std::int32_t r) {
        if (appels++ == k) Echappe();
        return biblio(p, t, d, r);
      };
      EXPECT_FALSE(Deplacement_Selection(Direction::X, 1)) << k;
      EXPECT_EQ(EtatCourant(), debut_) << k;
    }
  }
  EXPECT_EQ(rafraichis, 0);
  EXPECT_EQ(repris, 2 * NombreChemins);
}

TEST_F(PasseTracesTest, AnArrowEndsTheKernelAtWhicheverPathItComes) {
  SvcPasse.Jusque = nullptr;
  Deplacement_Selection(Direction::Y, 1);
  Deplacement_Selection(Direction::X, 1);
  const Etat attendu = EtatCourant();
  EcritSansTrajet();
  const auto biblio = Biblio.DecalSequence;
  for (int k = 0; k < NombreChemins; ++k) {
    TraceInitial = debut_.points;
    TraceDecale = debut_.traces;
    int appels = 0;
    Biblio.DecalSequence = [&](Bibliotheque::Points& p, float t, float d, std::int32_t r) {
      if (appels++ == k) Deplacement_Selection(Direction::X, 1);
      return biblio(p, t, d, r);
    };
    EXPECT_TRUE(Deplacement_Selection(Direction::Y, 1));
    EXPECT_EQ(EtatCourant(), attendu) << k;
    EXPECT_EQ(appels, k + 1 + NombreChemins) << k;
  }
}

TEST_F(PasseTracesTest, EscapeTakesBackAllThatHasComeSinceTheTracesWereRight) {
  script = {[] { return !Deplacement_Selection(Direction::X, 2); }, [] { return !EntreRayonFraise("2"); },
            [this] {
              Echappe();
              return false;
            }};
  EXPECT_FALSE(Deplacement_Selection(Direction::X, 1));
  EXPECT_EQ(EtatCourant(), debut_);
  EXPECT_EQ(passes, 3);
  EXPECT_EQ(repris, 1);
  EXPECT_EQ(rafraichis, 0);
}

TEST_F(PasseTracesTest, AToolFieldTypedAgainIsTheOneInForce) {
  SvcPasse.Jusque = nullptr;
  ASSERT_TRUE(EntreRayonFraise("3"));
  const Etat attendu = EtatCourant();
  RayonFraise = debut_.rayon;
  TraceDecale = debut_.traces;
  Modifie = Faux;
  rafraichis = 0;
  EcritSansTrajet();
  script = {[] { return !EntreRayonFraise("2"); }, [] { return !EntreRayonFraise("3"); }};
  EXPECT_TRUE(EntreRayonFraise("2,5"));
  EXPECT_EQ(EtatCourant(), attendu);
  EXPECT_EQ(passes, 3);
  EXPECT_EQ(rafraichis, 1);
}

TEST_F(PasseTracesTest, AToolFieldAfterAnArrowComputesAllPaths) {
  AjouteVague(" Z", -60);
  Sequences.back().Selection = Faux;
  RecalculDecalages();
  script = {[] { return !EntreRayonFraise("2"); }};
  EXPECT_TRUE(Deplacement_Selection(Direction::X, 1));
  const auto obtenues = TraceDecale;
  RecalculDecalages();
  EXPECT_EQ(obtenues, TraceDecale);
}

TEST_F(PasseTracesTest, AToolFieldThatIsTakenBackHasItsValueInTheFilesToo) {
  LargeurEncoche = 4;
  EcritOutil();
  PCPoche = 40;
  EcritOptions();
  for (const auto& entre : {std::function<bool()>([] { return EntreLargeurEncoche("9"); }),
                            std::function<bool()>([] { return EntrePCPoche("20"); })}) {
    script = {[this] {
      Echappe();
      return false;
    }};
    EXPECT_TRUE(entre()) << "nothing was refused";
    EXPECT_EQ(LargeurEncoche, 4);
    EXPECT_EQ(PCPoche, 40);
    EXPECT_EQ(LireCleIni("LargeurEncoche", ""), "4");
    EXPECT_EQ(LireCleIni("PCPoche", ""), "40");
    EXPECT_EQ(Modifie, Faux);
  }
}

TEST_F(PasseTracesTest, AToolFieldThatIsTakenBackLeavesKeysOutOfTheFilesThatStoodInNone) {
  const std::string ini = "[OVELIN]\r\nLangue=fr\r\n";
  EcritFichierEssai("OVELIN.ini", ini);
  for (const auto& entre : {std::function<bool()>([] { return EntreLargeurEncoche("9"); }),
                            std::function<bool()>([] { return EntrePCPoche("20"); })}) {
    script = {[this, &ini] {
      EXPECT_NE(LitFichierEssai(CheminIni()), ini);
      Echappe();
      return false;
    }};
    EXPECT_TRUE(entre()) << "nothing was refused";
    EXPECT_EQ(LitFichierEssai(CheminIni()), ini);
  }
}

TEST_F(PasseTracesTest, AToolFieldBehindAnArrowIsTakenBackInTheFilesWithIt) {
  const std::string ini = "[OVELIN]\r\nLargeurEncoche=4.0\r\n";
  EcritFichierEssai("OVELIN.ini", ini);
  LargeurEncoche = 4;
  script = {[] { return !EntreLargeurEncoche("9"); },
            [this, &ini] {
              EXPECT_NE(LitFichierEssai(CheminIni()), ini);
              Echappe();
              return false;
            }};
  EXPECT_FALSE(Deplacement_Selection(Direction::X, 1));
  EXPECT_EQ(LargeurEncoche, 4);
  EXPECT_EQ(LitFichierEssai(CheminIni()), ini);
}

TEST_F(PasseTracesTest, ADrawingThatChangedWithoutAWordIsComputedWhole) {
  script = {[] {
    TraceInitial[3].X += 1;
    return false;
  }};
  EXPECT_TRUE(Deplacement_Selection(Direction::X, 1));
  EXPECT_EQ(passes, 2);
  const auto obtenues = TraceDecale;
  RecalculDecalages();
  EXPECT_EQ(obtenues, TraceDecale);
}

TEST_F(PasseTracesTest, ACoordinateThatIsNoNumberIsNoChange) {
  Biblio.DecalSequence = [](Bibliotheque::Points&, float, float, std::int32_t) { return 1; };
  TraceInitial[5].Y = std::nanf("");
  EXPECT_TRUE(EntreRayonFraise("2"));
  EXPECT_EQ(passes, 1);
}

TEST_F(PasseTracesTest, APathThatFailsLeavesWhatComputingAllLeaves) {
  const auto biblio = Biblio.DecalSequence;
  Biblio.DecalSequence = [biblio](Bibliotheque::Points& p, float t, float d, std::int32_t r) {
    return p.front().Seq == Code2(" C") ? 0 : biblio(p, t, d, r);
  };
  EXPECT_TRUE(Deplacement_Selection(Direction::X, 1));
  const auto obtenues = TraceDecale;
  EXPECT_TRUE(std::any_of(obtenues.begin(), obtenues.end(),
                          [](const SequenceDecalee& d) { return d.Seq == Code2(" C") && d.Points.empty(); }));
  RecalculDecalages();
  EXPECT_EQ(obtenues, TraceDecale);
}

TEST_F(PasseTracesTest, WantOfMemoryOnTheWayLeavesTheStateOfBefore) {
  const auto biblio = Biblio.DecalSequence;
  Biblio.DecalSequence = [biblio](Bibliotheque::Points& p, float t, float d, std::int32_t r) {
    if (p.front().Seq == Code2(" D")) throw std::bad_alloc();
    return biblio(p, t, d, r);
  };
  EXPECT_THROW(Deplacement_Selection(Direction::X, 1), std::bad_alloc);
  EXPECT_EQ(EtatCourant(), debut_);
  Biblio.DecalSequence = biblio;
  EXPECT_TRUE(Deplacement_Selection(Direction::X, 1)) << "and no pass is left behind";
  EXPECT_EQ(rafraichis, 1);
}

TEST_F(PasseTracesTest, AFewOfManyPathsKeepTheOthersWhereTheyStand) {
  for (int k = 0; k < 20; ++k) {
    const float y = 20.0F * static_cast<float>(k);
    AjouteSequence(std::string("z") + static_cast<char>('A' + k), {{400, y}, {410, y}});
    Sequences.back().Selection = Faux;
  }
  std::rotate(TraceInitial.begin(), TraceInitial.begin() + 481, TraceInitial.end());
  RecalculDecalages();
  const auto points = TraceInitial;
  const auto traces = TraceDecale;
  EXPECT_TRUE(Deplacement_Selection(Direction::X, 1));
  EXPECT_EQ(passes, 1);
  const auto obtenues = TraceDecale;
  TraceInitial = points;
  TraceDecale = traces;
  SvcPasse.Jusque = nullptr;
  Deplacement_Selection(Direction::X, 1);
  EXPECT_EQ(obtenues, TraceDecale);
}

TEST_F(PasseTracesTest, TracesThatAreThereAtOnceNeedNoPass) {
  for (SequenceInfo& s : Sequences) s.Poche = Faux;
  EXPECT_TRUE(Deplacement_Selection(Direction::X, 1));
  EXPECT_TRUE(EntreRayonFraise("2"));
  EXPECT_EQ(passes, 0);
  EXPECT_EQ(rafraichis, 2);
  const auto obtenues = TraceDecale;
  RecalculDecalages();
  EXPECT_EQ(obtenues, TraceDecale);
}

TEST_F(PasseTracesTest, ARefusedMoveStartsNone) {
  Attend("F_Representation", "lib113");
  EXPECT_FALSE(Deplacement_Selection(Direction::X, 2e7F));
  EXPECT_EQ(passes, 0);
  EXPECT_EQ(EtatCourant(), debut_);
}

TEST_F(PasseTracesTest, ProgressCountsThePathsOfTheKernelThatComesToItsEnd) {
  std::vector<long> totaux;
  long faits = 0;
  int ouverts = 0;
  Svc.AvancementDebut = [&](const std::string&, long total) {
    totaux.push_back(total);
    faits = 0;
    ++ouverts;
  };
  Svc.AvancementPlus = [&] { ++faits; };
  Svc.AvancementFin = [&] { --ouverts; };
  script = {[] { return !Deplacement_Selection(Direction::X, 1); }};
  EXPECT_TRUE(Deplacement_Selection(Direction::X, 1));
  EXPECT_EQ(totaux, (std::vector<long>{NombreChemins, NombreChemins}));
  EXPECT_EQ(faits, NombreChemins);
  EXPECT_EQ(ouverts, 0);
}

TEST_F(PasseTracesTest, SizePlaceAndOriginAreTakenBackWhole) {
  OrigineX = 5;
  OrigineY = 7;
  const Document avant = Doc;
  for (const auto& commande : {std::function<bool()>([] { return Recale(100, 100); }),
                               std::function<bool()>([] { return PlaceOrigine(); }),
                               std::function<bool()>([] { return Dimensionne_Selection(1.1, 1.1, true); }),
                               std::function<bool()>([] { return Deplacement_Libre(1, 2); })}) {
    script = {[this] {
      Echappe();
      return false;
    }};
    EXPECT_FALSE(commande());
    EXPECT_TRUE(Doc == avant);
    EXPECT_TRUE(commande());
    EXPECT_FALSE(Doc == avant);
    const auto obtenues = TraceDecale;
    RecalculDecalages();
    EXPECT_EQ(obtenues.size(), TraceDecale.size());
    Doc = avant;
  }
  EXPECT_EQ(passes, 8);
}

TEST(Deplacement_Libre, MovesBothWaysInOneStep) {
  AjouteCarre(" A", 0, 0, 10);
  int rafraichis = 0;
  Svc.Rafraichit = [&] { ++rafraichis; };
  const PointTrace avant = TraceInitial[0];
  EXPECT_TRUE(Deplacement_Libre(3, -2));
  EXPECT_EQ(TraceInitial[0].X, avant.X + 3);
  EXPECT_EQ(TraceInitial[0].Y, avant.Y - 2);
  EXPECT_EQ(rafraichis, 1);
  EXPECT_FALSE(TraceDecale.empty());
  Attend("F_Representation", "lib113");
  const auto points = TraceInitial;
  EXPECT_FALSE(Deplacement_Libre(1, 2e7F));
  EXPECT_EQ(TraceInitial, points);
}
