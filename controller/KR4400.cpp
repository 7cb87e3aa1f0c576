// The programming lines of a PIC 16F87x, through the board: the family's published low-voltage programming
// commands. The target's address counter only goes up; what lies behind it is reached by entering the mode anew.
#include <limits>
#include <string_view>

#include "controller/ClsCdeZENIK.h"
#include "core/Services.h"

namespace ovelin {

namespace {

// Sub-commands of Y, and the target's commands.
constexpr std::uint8_t Lit = 2, Seul = 3, AvecMot = 4;
constexpr std::uint8_t ChargeConfiguration = 0, Effacement1 = 1, ChargeProgramme = 2, ChargeDonnees = 3,
                       LitProgramme = 4, LitDonnees = 5, Increment = 6, Effacement2 = 7, EffaceEtGrave = 8,
                       Grave = 24;

constexpr std::int32_t DebutConfiguration = 8192, DebutDonnees = 8448, FinDonnees = DebutDonnees + 256;
constexpr std::int32_t MotConfiguration = DebutConfiguration + 7;
constexpr int PasIdentite = 6;                 // above the start of the configuration
constexpr std::uint16_t Uns = 0x3FFF;          // an erased word of 14 bits
constexpr std::uint16_t CelluleEffacee = 255;  // of the data memory
constexpr double DureeGravure = 0.01;          // s; the family asks for 8 ms at most
constexpr double DureeEffacement = 0.02;       // s
constexpr const char* SansModele = "____";
// Behind a lost step nobody knows where the counter stands: every address lies behind this one.
constexpr std::int32_t Inconnue = std::numeric_limits<std::int32_t>::max();

struct Modele {
  int identite;  // device word / 32
  std::string_view nom;
};
constexpr Modele Modeles[] = {
    {104, "PIC 16F870"},  {105, "PIC 16F871"},  {71, "PIC 16F872"},   {75, "PIC 16F873"},
    {73, "PIC 16F874"},   {79, "PIC 16F876"},   {77, "PIC 16F877"},   {114, "PIC 16F873A"},
    {115, "PIC 16F874A"}, {112, "PIC 16F876A"}, {113, "PIC 16F877A"},
};

std::string NomModele(std::uint16_t mot) {
  for (const Modele& m : Modeles) {
    if (m.identite == mot / 32) return std::string(m.nom) + " Rev " + std::to_string(mot % 32);
  }
  return SansModele;
}

}  // namespace

bool ClsCdeZENIK::KR4400_LVP(bool etat) {
  Tampon.fill(0);
  const bool envoye = Ordre('Y', {static_cast<std::uint8_t>(etat ? 0 : 1)});
  AdresseCourante = 0;
  return envoye;
}

bool ClsCdeZENIK::OrdreMot(std::uint8_t commande, std::uint16_t mot) {
  return Ordre('Y', {AvecMot, commande, static_cast<std::uint8_t>(mot >> 8U), static_cast<std::uint8_t>(mot)});
}

std::string ClsCdeZENIK::KR4400_Version() {
  KR4400_LVP(false);
  if (!KR4400_LVP(true) || Tampon[1] != 'Y') return SansModele;
  OrdreMot(ChargeConfiguration, 0);
  for (int i = 0; i < PasIdentite; ++i) KR4400_Increment();
  const bool lue = Ordre('Y', {Lit, LitProgramme});
  const auto mot = static_cast<std::uint16_t>(Tampon[2] << 8U | Tampon[3]);
  KR4400_LVP(false);
  return lue ? NomModele(mot) : SansModele;
}

// The family's sequence of a bulk erase: all ones loaded, the switch of it pressed, burnt, the switch pressed
// again.
bool ClsCdeZENIK::EffacePuce(std::uint8_t charge) {
  bool envoye = OrdreMot(charge, Uns);
  for (const std::uint8_t commande : {Effacement1, Effacement2, EffaceEtGrave}) {
    envoye = Ordre('Y', {Seul, commande}) && envoye;
  }
  Svc.Attend(DureeEffacement);
  for (const std::uint8_t commande : {Effacement1, Effacement2}) envoye = Ordre('Y', {Seul, commande}) && envoye;
  return envoye;
}

bool ClsCdeZENIK::KR4400_Erase_Program() { return EffacePuce(ChargeProgramme); }
bool ClsCdeZENIK::KR4400_Erase_Data() { return EffacePuce(ChargeDonnees); }

bool ClsCdeZENIK::KR4400_Increment() {
  const bool envoye = Ordre('Y', {Seul, Increment});
  if (envoye && AdresseCourante != Inconnue) ++AdresseCourante;
  if (!envoye) AdresseCourante = Inconnue;
  return envoye;
}

// `adresse`: of the counter, data memory from 0. The configuration is entered by its own command, for no number of
// steps leads out of the program memory.
bool ClsCdeZENIK::VaA(std::int32_t adresse) {
  if (adresse < 0) return false;
  const bool configuration = adresse >= DebutConfiguration;
  if (adresse < AdresseCourante || (configuration && AdresseCourante < DebutConfiguration)) {
    KR4400_LVP(false);
    if (!KR4400_LVP(true)) {
      AdresseCourante = Inconnue;
      return false;
    }
    if (configuration) {
      const bool entree = OrdreMot(ChargeConfiguration, 0);
      AdresseCourante = entree ? DebutConfiguration : Inconnue;
      if (!entree) return false;
    }
  }
  while (AdresseCourante < adresse) {
    if (!KR4400_Increment()) return false;
  }
  return AdresseCourante == adresse;
}

std::optional<std::uint16_t> ClsCdeZENIK::MotPuce(std::int32_t adresse) {
  const bool donnees = adresse >= DebutDonnees;
  ModeProgrammation = donnees ? Vrai : Faux;
  const bool la = adresse < FinDonnees && VaA(donnees ? adresse - DebutDonnees : adresse);
  const bool lue = la && Ordre('Y', {Lit, donnees ? LitDonnees : LitProgramme});
  if (!lue) return std::nullopt;
  return static_cast<std::uint16_t>((donnees ? 0 : Tampon[2] << 8U) | Tampon[3]);
}

bool ClsCdeZENIK::KR4400_Send_Data(std::int32_t adresse, std::uint16_t valeur) {
  const bool donnees = adresse >= DebutDonnees;
  if (donnees && valeur == CelluleEffacee) return true;
  if (adresse >= FinDonnees) return false;
  // What has been loaded before belongs to another memory.
  if (donnees ? ModeProgrammation == Faux : adresse >= DebutConfiguration) AdresseCourante = Inconnue;
  ModeProgrammation = donnees ? Vrai : Faux;
  if (!VaA(donnees ? adresse - DebutDonnees : adresse)) return false;
  if (!OrdreMot(donnees ? ChargeDonnees : ChargeProgramme, valeur)) return false;
  if (!Ordre('Y', {Seul, Grave})) return false;
  Svc.Attend(DureeGravure);
  // By the address that was asked for: the reading takes the beginning of the data memory off by itself.
  if (MotPuce(adresse) != valeur) return false;
  return KR4400_Increment();
}

std::uint16_t ClsCdeZENIK::KR4400_Read_Data(std::int32_t adresse) {
  return MotPuce(adresse).value_or(adresse >= DebutDonnees ? CelluleEffacee : Uns);
}

bool ClsCdeZENIK::KR4400_Send_CW(std::uint16_t valeur) { return KR4400_Send_Data(MotConfiguration, valeur); }
std::uint16_t ClsCdeZENIK::KR4400_Read_CW() { return KR4400_Read_Data(MotConfiguration); }

}  // namespace ovelin
