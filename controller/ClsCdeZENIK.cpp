#include "controller/ClsCdeZENIK.h"

#include <cmath>
#include <cstdio>
#include <tuple>
#include <utility>

#include "base/Fichiers.h"
#include "core/ChampsMachine.h"
#include "core/Etat.h"
#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "machine/Module_Table.h"

namespace ovelin {

std::unique_ptr<ClsCdeZENIK> CdeZENIK = std::make_unique<ClsCdeZENIK>();

namespace {

[[maybe_unused]] const bool Enregistree = EnregistreRemise([] { CdeZENIK = std::make_unique<ClsCdeZENIK>(); });

constexpr const char* FichierDebug = "debug.txt";  // of the current folder

// Fixed texts of the link, the same in every language.
void MontreTexte(std::string texte) {
  BoiteMessage boite;
  boite.texte = std::move(texte);
  Svc.Montre(boite);
}

// The failures of the library that the user is told; nullptr for those that stay silent.
const char* TexteEchec(std::int32_t resultat) {
  switch (resultat) {
    case zenikcom::TropPetit:
      return " - Table too small";
    case zenikcom::NonVerrouille:
      return " - Can't lock the table";
    default:
      return nullptr;
  }
}

// All 37 bytes, two upper-case hexadecimal digits each with a blank behind.
std::string Hexadecimal(const zenikcom::TamponOctets& tampon) {
  static constexpr char chiffres[] = "0123456789ABCDEF";
  std::string texte;
  texte.reserve(tampon.size() * 3);
  for (const std::uint8_t octet : tampon) {
    texte += chiffres[octet >> 4];
    texte += chiffres[octet & 15];
    texte += ' ';
  }
  return texte;
}

// A length as it is given, 0 for what is no number.
double Longueur(double mm) { return std::isfinite(mm) ? mm : 0; }

// A length in mm as whole steps. The resolution is never 0.
std::int32_t EnPas(double mm, double mmParPas) { return Arrondi32(mm / mmParPas); }

}  // namespace

ClsCdeZENIK::ClsCdeZENIK() : ClsCdeZENIK(zenikcom::LiaisonAbsente()) {}

// Opens nothing: the library connects on demand.
ClsCdeZENIK::ClsCdeZENIK(std::unique_ptr<zenikcom::Liaison> liaison)
    : liaison_(liaison ? std::move(liaison) : zenikcom::LiaisonAbsente()) {}

ClsCdeZENIK::~ClsCdeZENIK() { liaison_->Ferme(); }

bool ClsCdeZENIK::IsAvailable() { return liaison_->EstConnectee() == 1; }

// The guard pattern 85, 170 keeps a stray buffer from resetting the board. The library is called past the send
// routine, so that no failure is shown.
void ClsCdeZENIK::Reset() {
  Tampon[0] = 0;
  Tampon[1] = 'Z';
  Tampon[2] = 85;
  Tampon[3] = 170;
  Tampon[4] = 0;
  std::int32_t modeEnvoi = 0;
  liaison_->Envoie(Tampon, modeEnvoi);
}

bool ClsCdeZENIK::EnvoiCommande(std::int32_t& modeEnvoi) {
  ++ProfondeurEnvoi;
  Tampon[0] = 0;  // a reply may have left something else there
  const std::int32_t resultat = liaison_->Envoie(Tampon, modeEnvoi);
  if (const char* echec = TexteEchec(resultat); echec != nullptr) {
    MontreTexte("ZENIK : " + std::to_string(resultat) + echec);
  }
  --ProfondeurEnvoi;
  SuitLiaison(resultat == zenikcom::Reussi);
  return resultat == zenikcom::Reussi;
}

bool ClsCdeZENIK::JournalDebug() {
  DebugTexte = Hexadecimal(Tampon);
  MontreTexte(DebugTexte);
  // Closed again at once, so that the line is there whatever happens next.
  const int erreur = base::AjouteAuFichier(FichierDebug, DebugTexte + "\n");
  if (erreur != 0 && !debugRefuse_) {
    MessageFichier(Textes::DebugNonEcrit, "\n" + base::TexteErreur(erreur), Icone::Exclamation, FichierDebug);
  }
  debugRefuse_ = erreur != 0;
  return true;
}

// The tool does not move because a plan counts in steps of 1 mm, or because a table gets another resolution: were
// the millimetres computed anew from the steps, a file written without a machine would begin at as many millimetres
// as the machine has made steps.
void ClsCdeZENIK::FixeResolutions(double x, double y, double z) {
  if (mmParPas_ == mmParPasMachine_) {
    machine_ = {{PasX, PasY, PasZ}, {PasDebutX, PasDebutY, PasDebutZ}, {PosX, PosY, PosZ}};
  }
  const std::array<double, 3> nouvelles{x, y, z};
  for (std::size_t i = 0; i < nouvelles.size(); ++i) {
    if (std::isfinite(nouvelles[i]) && nouvelles[i] != 0) mmParPas_[i] = nouvelles[i];
  }
  FixePosition(PosX, PosY, PosZ);
}

void ClsCdeZENIK::FixePosition(double x, double y, double z) {
  PosX = Longueur(x);
  PosY = Longueur(y);
  PosZ = Longueur(z);
  PasX = PasDebutX = EnPas(PosX, mmParPas_[0]);
  PasY = PasDebutY = EnPas(PosY, mmParPas_[1]);
  PasZ = PasDebutZ = EnPas(PosZ, mmParPas_[2]);
}

void ClsCdeZENIK::ChargeParametres() {
  LectureParametres lus = LitParametres([](const LectureChamp& champ) { return LireNombreTable(champ); });
  parametres_ = lus.parametres;
  PoseResolutions();
  std::string texte;
  for (const ValeurTenue& v : lus.tenues) {
    const std::string ligne =
        SectionTable(TableDefaut) + ": " + v.cle + "=" + TexteNombre(v.lue) + " : " + TexteNombre(v.prise);
    if (tenuesDites_.insert(ligne).second) texte += "\n" + ligne;
  }
  if (texte.empty()) return;
  BoiteMessage boite = BoiteDe(Textes::TableTenue, Icone::Exclamation);
  boite.texte += texte;
  Svc.Montre(boite);
}

// The motor stands on whole steps, whatever a step is worth: with another table the place in mm is another one.
void ClsCdeZENIK::PoseResolutions() {
  const std::array<double, 3> nouvelles = parametres_.MmParPas();
  const bool premiere = mmParPasMachine_[0] == 0;
  if (premiere || mmParPas_ != mmParPasMachine_) {
    mmParPas_ = premiere ? nouvelles : mmParPasMachine_;
    FixePosition(PosX, PosY, PosZ);
    if (!premiere && machine_.mm == std::array<double, 3>{PosX, PosY, PosZ}) {
      std::tie(PasX, PasY, PasZ) = std::tie(machine_.pas[0], machine_.pas[1], machine_.pas[2]);
      std::tie(PasDebutX, PasDebutY, PasDebutZ) = std::tie(machine_.debut[0], machine_.debut[1], machine_.debut[2]);
    }
  }
  mmParPasMachine_ = nouvelles;
  if (mmParPas_ == nouvelles) return;
  mmParPas_ = nouvelles;
  PosX = PasX * mmParPas_[0];
  PosY = PasY * mmParPas_[1];
  PosZ = PasZ * mmParPas_[2];
}

}  // namespace ovelin
