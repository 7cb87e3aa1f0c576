// Jobs on the virtual board, fed as a run feeds them.
#pragma once

#include <array>
#include <functional>
#include <memory>
#include <random>
#include <string>
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
    CdeZENIK = std::make_unique<ClsCdeZENIK>(zenikcom::LiaisonVirtuelle(carte));
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
  // Gives each row to the board; ends where a run ends.
  void Nourrit() {
    RunActif = true;
    durees.clear();
    for (std::int32_t i = 1; i <= NbDeplacements && !Arrete(); ++i) {
      const Deplacement l = TableDecoupe[static_cast<std::size_t>(i)];
      float v = l.Vitesse, t = 0;
      while (!CdeZENIK->CommandeDATA(l.dX, l.dY, l.dZ, v, t, false) && !Arrete()) Passe();
      durees.push_back(static_cast<double>(t));
    }
    RunActif = false;
  }
  void Finit() {
    while (!Arrete() && !CdeZENIK->CommandeDATAend()) {
      Passe();
      CdeZENIK->DemandeInformation();
    }
    CdeZENIK->DemandeInformation();
    while (CdeZENIK->EnCours != Faux && !Arrete()) {
      Passe();
      CdeZENIK->DemandeInformation();
    }
  }
  void Passe() {
    Svc.LaisseEvenements(Evenements::Tous);
    if (aChaquePassage) aChaquePassage();
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

  std::int64_t heure = 1'000'000'000;  // ns
  std::int64_t pas = 20'000'000;       // ns that pass while the program lets events run
  std::function<void()> aChaquePassage;
  std::vector<double> durees;  // s, as foreseen for each row
  std::shared_ptr<zenikcom::CarteVirtuelle> carte;
};

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
