#include "machine/essais/Module_PasPerdus.h"

#include <array>
#include <cmath>

#include "controller/ClsCdeZENIK.h"
#include "core/Cles.h"
#include "core/ClesReglages.h"
#include "core/Nombres.h"
#include "core/RunCourant.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "machine/essais/PendantEssai.h"
#include "machine/essais/TableOuverte.h"

namespace ovelin {

namespace {

constexpr double PauseAttente = 0.005;  // s between two looks at the board
constexpr double VitesseMini = 0.01;    // mm/s, the least that two decimals hold
constexpr double VitesseMaxi = 1e6;     // mm/s: beyond what any axis does

constexpr int TwipsPixel = 15;
constexpr const char* Fenetre = "F_PasPerdus";

std::string CleGauche() { return std::string(Fenetre) + cles::suffixe::Gauche; }
std::string CleHaut() { return std::string(Fenetre) + cles::suffixe::Haut; }

using C = ChampsMachine;
struct ChampsAxe {
  ChampMachine transmission, pas, perdus;
};
constexpr std::array<ChampsAxe, 3> Axes{{{C::TransmissionX, C::PasParTourX, C::PasPerdusX},
                                         {C::TransmissionY, C::PasParTourY, C::PasPerdusY},
                                         {C::TransmissionZ, C::PasParTourZ, C::PasPerdusZ}}};

struct PasDemande {
  std::array<float, 3> mm{};
  float v = 0;  // mm/s
};

bool VitessesPresentes() {
  for (const ChampMachine& champ : {C::VitesseSansRampeX, C::VitesseSansRampeY, C::VitesseSansRampeZ}) {
    if (TexteTableOuverte(champ).empty()) return false;
  }
  return true;
}

// False, told where a box says more than the fields do.
bool LitPas(int index, int axe, const std::string& vitesse, PasDemande& pas) {
  if (!VitessesPresentes()) return false;
  const ChampsAxe& champs = Axes[static_cast<std::size_t>(axe)];
  const double transmission = NombreTableOuverte(champs.transmission).value_or(0);
  const double parTour = NombreTableOuverte(champs.pas).value_or(0);
  const double v = NombreDuTexte(vitesse).value_or(0);
  const double mm = transmission / -parTour * (index == 0 ? 1 : -1);
  if (transmission == 0 || parTour == 0 || EnFloat(mm) == 0) {
    Message(Textes::PasSansLongueur, Icone::Exclamation);
    return false;
  }
  if (v < VitesseMini || v > VitesseMaxi) {
    Message(v > VitesseMaxi ? Textes::EssaiNombre : Textes::EssaiVitesse, Icone::Exclamation);
    return false;
  }
  pas.mm[static_cast<std::size_t>(axe)] = EnFloat(mm);
  pas.v = EnFloat(v);
  return true;
}

IssuePas LiaisonCoupee() {
  Message(Textes::EssaiLiaison, Icone::Critique);
  return IssuePas::Interrompue;
}

bool LiaisonTient() { return CdeZENIK->TravailIncertain == Faux && CdeZENIK->IsAvailable(); }

bool Interrompt() { return StopDemande != Faux || FinProgramme; }

void Patiente() {
  Svc.LaisseEvenements(Evenements::Tous);
  Svc.Attend(PauseAttente);
}

// One way into the board, repeated while its buffer has no room. False: stopped, or the link is gone.
template <class Commande>
bool Insiste(Commande commande) {
  while (!commande()) {
    if (!LiaisonTient() || Interrompt()) return false;
    Patiente();
  }
  return true;
}

IssuePas Execute(const PasDemande& pas) {
  CdeZENIK->MotorOnOff(true);
  bool parti = CdeZENIK->EnvoiUSB();
  parti = parti && Insiste([&] {
            float v = pas.v;
            float t = 0;
            return CdeZENIK->CommandeDATAmm(pas.mm[0], pas.mm[1], pas.mm[2], v, t);
          });
  parti = parti && Insiste([] { return CdeZENIK->CommandeDATAend(); });
  if (parti) CdeZENIK->DemandeInformation();
  while (parti && CdeZENIK->EnCours != Faux && LiaisonTient() && !Interrompt()) {
    Patiente();
    CdeZENIK->DemandeInformation();
  }
  if (!LiaisonTient()) return LiaisonCoupee();
  if (!Interrompt()) return IssuePas::Faite;
  CdeZENIK->StopResume(0, 0);
  return IssuePas::Interrompue;
}

}  // namespace

std::string VitessePasPerdus(const std::string& texte) {
  const auto v = NombreDuTexte(texte);
  return v ? TexteNombre(std::nearbyint(*v * 100) / 100) : texte;
}

IssuePas Cmd_Depl(int index, int axe, const std::string& vitesse, std::int32_t& compteur) {
  if (MachineBouge()) {
    Svc.Bip();
    return IssuePas::Refusee;
  }
  PasDemande pas;
  if (!LitPas(index, axe, vitesse, pas)) return IssuePas::Refusee;
  if (!CdeZENIK->IsAvailable()) {
    Message(Textes::EssaiSansCarte, Icone::Critique);
    return IssuePas::Refusee;
  }
  const PendantEssai pendant;
  StopDemande = Faux;
  compteur = index == 0 ? 0 : compteur + 1;
  const IssuePas issue = Execute(pas);
  Svc.MontrePosition(CdeZENIK->PosX, CdeZENIK->PosY, CdeZENIK->PosZ);
  return issue;
}

void MemorisePasPerdus(int axe, std::int32_t compteur) {
  PoseTableOuverte(Axes[static_cast<std::size_t>(axe)].perdus, TexteNombre(static_cast<long>(compteur)));
}

std::optional<std::pair<int, int>> LitPlacePasPerdus() {
  const auto gauche = NombreDuTexte(LireCleIni(CleGauche(), ""));
  const auto haut = NombreDuTexte(LireCleIni(CleHaut(), ""));
  if (!gauche || !haut) return std::nullopt;
  return std::pair<int, int>{Arrondi32(*gauche / TwipsPixel), Arrondi32(*haut / TwipsPixel)};
}

void EcritPlacePasPerdus(int gauche, int haut) {
  const SansProjet reglages;
  const LotCles lot;
  EcrireCle(CleGauche(), TexteNombre(static_cast<long>(gauche) * TwipsPixel));
  EcrireCle(CleHaut(), TexteNombre(static_cast<long>(haut) * TwipsPixel));
}

bool PeutFermerPasPerdus() {
  if (TestEnCours) return false;
  if (!CdeZENIK->IsAvailable()) return true;
  CdeZENIK->DemandeInformation();
  return CdeZENIK->EnCours == Faux;
}

}  // namespace ovelin
