// Jobs on the virtual board, fed as a run feeds them.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "closed/CarteVirtuelle.h"
#include "controller/ClsCdeZENIK.h"
#include "core/Cles.h"
#include "core/PlanCourant.h"
#include "core/ReglagesCourants.h"
#include "core/RunCourant.h"
#include "machine/Module_Table.h"
#include "machine/TableCourante.h"
#include "run/Module_Profil.h"
#include "tests/support/Support.h"

namespace essai {

using namespace ovelin;
using zenikcom::Axes3;

// What a link does, by the clock of the test.
struct Temoin {
  std::int64_t heure = 1'000'000'000;  // ns
  std::int64_t echangeMaxi = 0;        // ns that the longest exchange lasted
  std::int64_t absenteDepuis = -1;     // ns; the link says that nothing is there
  std::int64_t attenteMaxi = 0;        // ns by which a call has outlived the link
};

class LiaisonTemoin final : public zenikcom::Liaison {
 public:
  LiaisonTemoin(std::unique_ptr<zenikcom::Liaison> liaison, Temoin& temoin)
      : liaison_(std::move(liaison)), temoin_(temoin) {}
  std::int32_t EstConnectee() override { return liaison_->EstConnectee(); }
  std::int32_t Envoie(zenikcom::TamponOctets& tampon, std::int32_t& mode) override {
    const std::int64_t debut = temoin_.heure;
    const std::int32_t resultat = liaison_->Envoie(tampon, mode);
    temoin_.echangeMaxi = std::max(temoin_.echangeMaxi, temoin_.heure - debut);
    if (resultat == zenikcom::Reussi || liaison_->EstConnectee() == 1) {
      temoin_.absenteDepuis = -1;
    } else if (temoin_.absenteDepuis < 0) {
      temoin_.absenteDepuis = debut;
    }
    return resultat;
  }
  void Ferme() override { liaison_->Ferme(); }

 private:
  std::unique_ptr<zenikcom::Liaison> liaison_;
  Temoin& temoin_;
};

// The two ways to the board: record by record, or through its flash memory.
enum class Voie { Flux, Liste };

// A virtual board with the table of the settings, and the one board object behind a link to it. As fast as it can,
// or on a clock of the test's own, which goes on when the program waits.
class Flux {
 public:
  explicit Flux(bool rapide, const std::string& table, int capacite = 64) {
    OublieCles();
    EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nTableDefaut=Essai\r\n[table_Essai]\r\n" + table);
    TableDefaut = "Essai";
    ChargeGlobalesTable();
    zenikcom::ConditionsCarte conditions;
    conditions.rapide = rapide;
    conditions.journal = true;
    conditions.capacite = capacite;
    conditions.horloge = [this] { return heure; };
    conditions.attend = [this](std::int64_t ns) { heure += ns; };
    carte = zenikcom::CreeCarteVirtuelle(conditions);
    Svc.Horloge = [this] { return static_cast<double>(heure) / 1e9; };
    Svc.Attend = [this](double s) { heure += static_cast<std::int64_t>(s * 1e9); };
    Svc.LaisseEvenements = [this](Evenements) { heure += pas; };
    CdeZENIK =
        std::make_unique<ClsCdeZENIK>(std::make_unique<LiaisonTemoin>(zenikcom::LiaisonVirtuelle(carte), temoin));
    CdeZENIK->ChargeParametres();
    CdeZENIK->TableEcrire("Essai", 0);
    CdeZENIK->TableDefautEcrire(0);
  }
  ~Flux() { CdeZENIK = std::make_unique<ClsCdeZENIK>(); }
  Flux(const Flux&) = delete;
  Flux& operator=(const Flux&) = delete;

  // Rows that move, from 1 on; the speeds as the estimate leaves them.
  void Compacte() {
    std::vector<Deplacement> lignes(1);
    for (std::int32_t i = 2; i <= NbDeplacements; ++i) {
      const Deplacement& l = TableDecoupe[static_cast<std::size_t>(i)];
      if (l.dX != 0 || l.dY != 0 || l.dZ != 0) lignes.push_back(l);
    }
    TableDecoupe = lignes;
    NbDeplacements = static_cast<std::int32_t>(lignes.size()) - 1;
  }
  // Where the rows will go, and the foreseen time by that way; the table is then that of a run.
  double Prepare(Voie v) {
    voie = v;
    ModeEnvoiTable = voie == Voie::Liste ? 2 : 0;
    ListeFlash.assign(1, 0);
    const double prevu = TempsDecoupe();
    Compacte();
    return prevu;
  }
  // From the table to the last record; `false`: it could not be begun.
  bool Joue() {
    if (voie == Voie::Flux && !Appelle([] { return CdeZENIK->EnvoiUSB(); })) return false;
    Nourrit();
    if (voie == Voie::Liste && !(Memorise() && Lance())) return false;
    Finit();
    return true;
  }
  // Gives each row to the board, or to the list; ends where a run ends.
  void Nourrit() {
    RunActif = true;
    durees.clear();
    for (std::int32_t i = 1; i <= NbDeplacements && !Arrete(); ++i) {
      const Deplacement l = TableDecoupe[static_cast<std::size_t>(i)];
      float v = l.Vitesse, t = 0;
      while (!Appelle([&] { return CdeZENIK->CommandeDATA(l.dX, l.dY, l.dZ, v, t, false); }) && !Arrete()) Passe();
      TableDecoupe[static_cast<std::size_t>(i)].Ticks = CdeZENIK->NbTicks;
      durees.push_back(static_cast<double>(t));
      if (aChaqueLigne) aChaqueLigne();
    }
    RunActif = false;
  }
  // The list into the flash memory. False: not all of it is known to stand there.
  bool Memorise() {
    ListeFlash.back() = 128;
    Appelle([] { CdeZENIK->Flash_Tab(ListeFlash); });
    return CdeZENIK->PagesNonConfirmees == 0;
  }
  // Starts it. False: it is not open; a go that is not known to have been taken ends it by a stop.
  bool Lance() {
    if (!Appelle([] { return CdeZENIK->EnvoiFLASH(0, 0); })) return false;
    if (!Appelle([] { return CdeZENIK->RepeteGo(); })) StopDemande = Vrai;
    return true;
  }
  void Finit() {
    while (voie == Voie::Flux && !Arrete() && !Appelle([] { return CdeZENIK->CommandeDATAend(); })) {
      Passe();
      Demande();
    }
    Demande();
    while (CdeZENIK->EnCours != Faux && !Arrete()) {
      Passe();
      Demande();
    }
  }
  void Demande() {
    Appelle([] { CdeZENIK->DemandeInformation(); });
    if (aChaqueDemande) aChaqueDemande();
  }
  void Arrete(bool rampe) {
    Appelle([rampe] { CdeZENIK->StopResume(rampe ? 1 : 0, rampe ? CdeZENIK->Calc_FDEC() : std::uint8_t{0}); });
  }
  void Passe() {
    Svc.LaisseEvenements(Evenements::Tous);
    if (aChaquePassage) aChaquePassage();
  }
  // Looks at the place from now on, as often as the board can be asked: at the end of each record where it runs as
  // fast as it can.
  void SuitPlace() {
    const auto regarde = [this] {
      const Axes3 ici = PasDuProgramme(), la = carte->Lieu();
      for (std::size_t axe = 0; axe < 3; ++axe) {
        ecartPlace = std::max<std::int64_t>(ecartPlace, std::abs(ici[axe] - la[axe]));
      }
      vus.insert(CdeZENIK->NbBlocsTraites);
    };
    aChaqueDemande = regarde;
    aChaqueLigne = [this, regarde] {
      if (voie == Voie::Liste) return;
      CdeZENIK->DemandeInformation();
      regarde();
    };
  }
  // Who gets no answer to a record stops the job, as a run does.
  static bool Arrete() {
    if (CdeZENIK->TravailIncertain != Faux) StopDemande = Vrai;
    return StopDemande != Faux;
  }
  static Axes3 PasDuProgramme() { return {CdeZENIK->PasX, CdeZENIK->PasY, CdeZENIK->PasZ}; }
  // Steps of the table up to row `n`.
  static Axes3 Somme(std::int32_t n) {
    Axes3 s{};
    for (std::int32_t i = 1; i <= n; ++i) {
      const Deplacement& l = TableDecoupe[static_cast<std::size_t>(i)];
      s[0] += l.dX;
      s[1] += l.dY;
      s[2] += l.dZ;
    }
    return s;
  }

  Temoin temoin;
  std::int64_t& heure = temoin.heure;  // ns
  std::int64_t pas = 20'000'000;       // ns that pass while the program lets events run
  Voie voie = Voie::Flux;
  std::function<void()> aChaquePassage, aChaqueLigne, aChaqueDemande;
  std::int64_t ecartPlace = 0;  // steps, the worst that SuitPlace has seen
  std::set<std::int32_t> vus;   // records at which it has looked
  std::vector<double> durees;   // s, as foreseen for each row
  std::shared_ptr<zenikcom::CarteVirtuelle> carte;

 private:
  // A call into the class, and by how much it outlives a link that is gone.
  template <class F>
  std::invoke_result_t<F> Appelle(F appel) {
    struct Mesure {
      explicit Mesure(Temoin& t) : temoin(t), debut(t.heure) {}
      ~Mesure() {
        if (temoin.absenteDepuis < 0) return;
        temoin.attenteMaxi = std::max(temoin.attenteMaxi, temoin.heure - std::max(debut, temoin.absenteDepuis));
      }
      Mesure(const Mesure&) = delete;
      Mesure& operator=(const Mesure&) = delete;
      Temoin& temoin;
      std::int64_t debut;
    };
    const Mesure mesure(temoin);
    return appel();
  }
};

// Foreseen against run, record by record: the worst difference in ticks of the slowest level of its record. Rows
// too short to climb are counted apart.
struct EcartTemps {
  double ticks = 0;
  int courtes = 0;
};
inline EcartTemps CompareTemps(const Flux& f) {
  EcartTemps ecart;
  const auto& joues = f.carte->Joues();
  EXPECT_EQ(joues.size(), f.durees.size());
  for (std::size_t i = 0; i < std::min(joues.size(), f.durees.size()); ++i) {
    const Deplacement& l = TableDecoupe[i + 1];
    const Mouvement m = CdeZENIK->Calcule({l.dX, l.dY, l.dZ}, l.Vitesse);
    if (m.rampe && m.Descente < 0) {
      ++ecart.courtes;
      continue;
    }
    const ParametresZENIK& p = CdeZENIK->Parametres();
    const double tick =
        m.rampe ? p.TableFreq[static_cast<std::size_t>(m.N)].Periode / 6e6 : 1e-4 / p.Multiplicateur;
    // What a foreseen time of 32 bits can't tell is no difference.
    const double reste = std::fabs(joues[i].secondes - f.durees[i]) - f.durees[i] * 1e-7;
    ecart.ticks = std::max(ecart.ticks, reste / tick);
  }
  return ecart;
}
constexpr double UnTick = 1.0001;

// All that can be said of a job that has run to its end, from `depart` on.
inline void VerifieJob(const Flux& f, const Axes3& depart) {
  const Axes3 somme = Flux::Somme(NbDeplacements);
  const Axes3 attendu{depart[0] + somme[0], depart[1] + somme[1], depart[2] + somme[2]};
  EXPECT_EQ(f.carte->Compteurs().etat, zenikcom::EtatCarte::Fini);
  EXPECT_EQ(f.carte->Lieu(), attendu);
  EXPECT_EQ(Flux::PasDuProgramme(), attendu);
  EXPECT_LT(CompareTemps(f).ticks, UnTick);
  EXPECT_LE(f.ecartPlace, 1);
  // A stored job begins with its go, the first end of a record may be behind by then.
  EXPECT_GE(static_cast<std::int32_t>(f.vus.size()), NbDeplacements - (f.voie == Voie::Liste ? 1 : 0));
}

// 100 steps a turn of 1 mm, halved once; speeds 6 without ramp and 15 with.
inline std::string TableDe(int multiplicateur, int pente) {
  std::string cles;
  for (const char* cle : {"TB_SAV_3=100", "TB_SAV_4=100", "TB_SAV_5=100", "TB_SAV_12=6", "TB_SAV_13=6",
                          "TB_SAV_14=6", "TB_SAV_15=15", "TB_SAV_16=15", "TB_SAV_17=15"}) {
    cles += std::string(cle) + "\r\n";
  }
  return cles + "Combo_SAV_11=" + std::to_string(multiplicateur - 1) + "\r\nSld_SAV_0=" + std::to_string(pente) +
         "\r\n";
}

// A table of up to `lignes` moves behind its row 1, short and long ones, some of nothing.
inline void TableAuHasard(std::mt19937& alea, int lignes) {
  const auto entre = [&](int a, int b) { return std::uniform_int_distribution<int>(a, b)(alea); };
  Plan = EtatPlan{};
  TableDecoupe.resize(2);
  for (int i = 0, n = entre(1, lignes); i < n; ++i) {
    const int taille = std::array<int, 4>{3, 60, 900, 9000}[static_cast<std::size_t>(entre(0, 3))];
    Deplacement l;
    l.dX = entre(-taille, taille) * entre(0, 1);
    l.dY = entre(-taille, taille) * entre(0, 1);
    l.dZ = entre(-taille, taille) * entre(0, 3) / 3;
    l.Vitesse = static_cast<float>(entre(1, 400)) / 10.0F;
    TableDecoupe.push_back(l);
  }
  NbDeplacements = static_cast<std::int32_t>(TableDecoupe.size()) - 1;
}

}  // namespace essai
