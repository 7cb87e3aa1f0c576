// Moves by hand on the virtual board in real time: from a pressed key to the first step, from its release to the
// stop that the board gets and to the stand-still, places shown a second in a move, and what the poll at rest
// costs. Wanted: under 100 ms, under 50 ms, at least 20, below 2 % of a core.
//   build/bench/bin/bench_manual
#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <memory>
#include <thread>
#include <utility>

#include "closed/CarteVirtuelle.h"
#include "closed/ZenikCom.h"
#include "controller/ClsCdeZENIK.h"
#include "core/Dossiers.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "machine/Module_Table.h"
#include "manual/Module_PilMan.h"
#include "manual/Module_PlaceMan.h"
#include "manual/Touches.h"

namespace {

using namespace ovelin;

double Maintenant() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

double Travail() {
  timespec t{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
  return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_nsec) * 1e-9;
}

double Stop = 0;  // s, when the board got it

// The link, with an eye on the stop.
class Guet : public zenikcom::Liaison {
 public:
  explicit Guet(std::unique_ptr<zenikcom::Liaison> vers) : vers_(std::move(vers)) {}
  std::int32_t EstConnectee() override { return vers_->EstConnectee(); }
  std::int32_t Envoie(zenikcom::TamponOctets& tampon, std::int32_t& mode) override {
    if (tampon[1] == 'S' && Stop == 0) Stop = Maintenant();
    return vers_->Envoie(tampon, mode);
  }
  void Ferme() override { vers_->Ferme(); }

 private:
  std::unique_ptr<zenikcom::Liaison> vers_;
};

// The worst of many.
struct Pire {
  double ms = 0;
  void Note(double s) { ms = std::max(ms, s * 1000); }
};

std::shared_ptr<zenikcom::CarteVirtuelle> Installe(const std::string& dossier) {
  DossierProgramme = dossier;
  std::ofstream(dossier + "/OVELIN.ini")
      << "[OVELIN]\r\nTableDefaut=Banc\r\n[table_Banc]\r\nTB_SAV_0=2\r\nTB_SAV_1=2\r\nTB_SAV_2=2\r\nTB_SAV_12=4\r\n"
         "TB_SAV_13=4\r\nTB_SAV_14=4\r\nTB_SAV_15=20\r\nTB_SAV_16=20\r\nTB_SAV_17=20\r\nTB_SAV_30=30\r\n"
         "TB_SAV_31=80\r\n";
  TableDefaut = "Banc";
  ChargeGlobalesTable();
  zenikcom::ConditionsCarte c;
  c.horloge = [] { return std::llround(Maintenant() * 1e9); };
  auto carte = zenikcom::CreeCarteVirtuelle(std::move(c));
  CdeZENIK = std::make_unique<ClsCdeZENIK>(std::make_unique<Guet>(zenikcom::LiaisonVirtuelle(carte)));
  CdeZENIK->ChargeParametres();
  Svc.Pilotage = [](DemandePilotage demande) { SuitPilotage(demande); };
  LitPilMan();
  return carte;
}

}  // namespace

int main() {
  const std::string dossier = std::filesystem::temp_directory_path() / "ovelin-bench-manual";
  std::filesystem::create_directories(dossier);
  Svc = ServicesMuets();
  const auto carte = Installe(dossier);
  constexpr int Jogs = 30;
  constexpr double Duree = 0.6;  // s that a key is held
  Pire depart, arret, repos;
  double moins = 1e9;
  for (int i = 0; i < Jogs; ++i) {
    PilMan.Vitesse = i % 2 == 0 ? 20 : 4;
    PilMan.Pas = 1;
    Stop = 0;
    int lieux = 0;
    double premier = 0, lache = 0;
    std::array<double, 3> vu{};
    const auto avant = carte->Lieu();
    Svc.MontrePosition = [&](double x, double y, double z) {
      if (std::exchange(vu, {x, y, z}) != vu) ++lieux;
    };
    Svc.LaisseEvenements = [&](Evenements) {
      const double t = Maintenant();
      if (premier == 0 && carte->Lieu() != avant) premier = t;
      if (premier == 0 || t - premier < Duree || lache != 0) return;
      lache = t;
      moins = std::min(moins, lieux / Duree);
      Form_KeyUp(touche::Droite);
    };
    const double presse = Maintenant();
    Form_KeyDown(i % 3 == 0 ? touche::Droite : touche::Gauche, false, false);
    depart.Note(premier - presse);
    arret.Note(Stop - lache);
    repos.Note(Maintenant() - lache);
  }
  Svc.MontrePosition = [](double, double, double) {};
  constexpr int Tics = 2000;
  const double debut = Travail();
  for (int i = 0; i < Tics; ++i) TimerPosition();
  const double tic = (Travail() - debut) / Tics;
  std::printf("key to first step   %7.2f ms at most\n", depart.ms);
  std::printf("release to stop     %7.2f ms at most\n", arret.ms);
  std::printf("release to rest     %7.2f ms at most, ramp 279 ms\n", repos.ms);
  std::printf("places shown        %7.0f a second at least\n", moins);
  std::printf("poll at rest        %7.4f ms of work: %.4f %% of a core each 275 ms, %.4f %% each 25 ms\n",
              tic * 1000, tic / 0.275 * 100, tic / 0.025 * 100);
  std::filesystem::remove_all(dossier);
  return depart.ms < 100 && arret.ms < 50 && moins >= 20 ? 0 : 1;
}
