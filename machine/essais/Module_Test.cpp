#include "machine/essais/Module_Test.h"

#include <algorithm>
#include <cmath>

#include "controller/ClsCdeZENIK.h"
#include "core/Nombres.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "machine/Module_Table.h"
#include "machine/essais/PendantEssai.h"
#include "machine/essais/RecordLisible.h"

namespace ovelin {

namespace {

constexpr const char* DeuxDecimales = "0.00";
constexpr const char* Secondes = "0.000";

std::array<double, 3> Distances(const SaisieTest& saisie) {
  std::array<double, 3> mm{};
  for (std::size_t i = 0; i < mm.size(); ++i) mm[i] = std::fabs(NombreDuTexte(saisie.distances[i]).value_or(0));
  return mm;
}

}  // namespace

bool SaisieComplete(const SaisieTest& saisie) {
  return EstNumerique(saisie.vitesse) && std::all_of(saisie.distances.begin(), saisie.distances.end(),
                                                     [](const auto& t) { return EstNumerique(t); });
}

std::string VitesseDebutTest(const SaisieTest& saisie) {
  for (const std::string& texte : saisie.distances) {
    if (!EstNumerique(texte)) return "";
  }
  using C = ChampsMachine;
  return Formate(VitesseDepartDe(Distances(saisie),
                                 {LireNombreTable(C::VitesseSansRampeX), LireNombreTable(C::VitesseSansRampeY),
                                  LireNombreTable(C::VitesseSansRampeZ)}),
                 DeuxDecimales);
}

ResultatTest CB_Envoi(const SaisieTest& saisie) {
  ResultatTest r;
  r.VDeb = VitesseDebutTest(saisie);
  if (MachineBouge()) {
    Svc.Bip();
    return r;
  }
  if (!CdeZENIK->IsAvailable()) {
    Message(Textes::TestSansCarte, Icone::Critique);
    return r;
  }
  if (!CdeZENIK->TableVerif()) return r;
  if (!CdeZENIK->EnvoiUSB()) {
    Message(Textes::EssaiLiaison, Icone::Critique);
    return r;
  }
  const std::array<double, 3> mm = Distances(saisie);
  float v = EnFloat(NombreDuTexte(saisie.vitesse).value_or(0));
  float t = 0;
  CdeZENIK->DebugTexte.clear();
  r.envoye = CdeZENIK->CommandeDATAmm(EnFloat(mm[0]), EnFloat(mm[1]), EnFloat(mm[2]), v, t);
  r.retour = GroupesRecord(CdeZENIK->DebugTexte);
  r.temps = Formate(static_cast<double>(t), Secondes);
  return r;
}

}  // namespace ovelin
