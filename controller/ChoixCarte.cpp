#include "controller/ChoixCarte.h"

#include <unistd.h>

#include <cctype>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

#include "controller/ClsCdeZENIK.h"
#include "core/Cles.h"
#include "core/ClesReglages.h"
#include "core/Dossiers.h"
#include "core/Etat.h"
#include "core/Fichiers.h"
#include "core/Nombres.h"
#include "core/RunCourant.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "core/Traduction.h"

namespace ovelin {

CarteDuProgramme LaCarte;

namespace {

using zenikcom::Liaison;
using zenikcom::Ouverture;
using zenikcom::Refus;

[[maybe_unused]] const bool Enregistree = EnregistreRemise([] { LaCarte = CarteDuProgramme{}; });

constexpr const char* FichierVirtuelle = "carte.zenik";

// Names of the key's values, in any letter case.
constexpr std::string_view Auto = "AUTO", Usb = "USB", Virtuelle = "VIRTUELLE", Aucune = "AUCUNE";

// A lock for what that text names, among those of this user.
std::string FichierVerrou(const MoyensCarte& moyens, const std::string& quoi) {
  if (moyens.dossierVerrous.empty()) return "";
  std::string nom;
  for (const char c : quoi) nom += std::isalnum(static_cast<unsigned char>(c)) != 0 ? c : '-';
  constexpr std::size_t longueurMaxi = 120;
  if (nom.size() > longueurMaxi) nom = nom.substr(nom.size() - longueurMaxi);
  return moyens.dossierVerrous + "/ovelin-" + std::to_string(getuid()) + "-carte-" + nom + ".verrou";
}

// Whatever answers with another letter than the one that was asked is another device.
bool AutreLettre(Liaison& liaison) {
  zenikcom::TamponOctets tampon{};
  tampon[1] = 'V';
  std::int32_t mode = 0;
  return liaison.Envoie(tampon, mode) == zenikcom::Reussi && tampon[1] != 'V';
}

class Choix {
 public:
  Choix(const ReglageCarte& reglage, const MoyensCarte& moyens) : reglage_(reglage), moyens_(moyens) {
    carte_.liaison = zenikcom::LiaisonAbsente();
  }

  CarteChoisie Fait() && {
    const std::string quoi = Majuscules(Rogne(reglage_.carte));
    if (quoi == Virtuelle) {
      PrendVirtuelle();
    } else if (quoi == Usb) {
      PrendUsb();
    } else if (quoi == Auto) {
      if (Rogne(reglage_.usb).empty() || !PrendUsb(true)) PrendVirtuelle();
    } else if (quoi.starts_with('/')) {
      PrendBibliotheque(Rogne(reglage_.carte));
    } else if (quoi != Aucune) {
      RefuseCarte(Textes::CarteInconnue);
    }
    if (moyens_.enveloppe && carte_.genre != GenreCarte::Aucune) {
      carte_.liaison = moyens_.enveloppe(std::move(carte_.liaison));
    }
    return std::move(carte_);
  }

 private:
  void RefuseCarte(CleTexte texte, const std::string& raison = "") {
    carte_.refus.push_back({texte, cles::CarteZENIK, reglage_.carte, raison});
  }
  void RefuseUsb(CleTexte texte, const std::string& raison = "") {
    carte_.refus.push_back({texte, cles::CarteZENIK_USB, reglage_.usb, raison});
  }

  // False where nothing is plugged in and another board may be taken instead.
  bool PrendUsb(bool siPresente = false) {
    const auto identite = zenikcom::LitIdentiteUsb(Rogne(reglage_.usb));
    if (!identite) {
      RefuseUsb(Textes::CarteIdentite);
      return true;
    }
    const std::string verrou = FichierVerrou(moyens_, "usb-" + Majuscules(Rogne(reglage_.usb)));
    Ouverture o =
        moyens_.usb ? moyens_.usb(*identite, verrou) : zenikcom::LiaisonUsb(*identite, verrou, moyens_.horloge);
    if (o.liaison == nullptr) {
      RefuseUsb(Textes::CarteOccupee, o.detail);
      return true;
    }
    const std::int32_t etat = o.liaison->EstConnectee();
    if (siPresente && etat != 1 && etat != zenikcom::SansDroit) return false;
    // A rule that is installed meanwhile lets the link open it by itself.
    if (etat == zenikcom::SansDroit) RefuseUsb(Textes::CarteSansDroit, std::string(zenikcom::NomRegleUdev));
    if (etat == 1 && AutreLettre(*o.liaison)) {
      RefuseUsb(Textes::CarteAutreLettre);
      return true;
    }
    Prend(GenreCarte::Usb, std::move(o.liaison));
    return true;
  }

  void PrendBibliotheque(const std::string& chemin) {
    std::error_code erreur;
    const std::string vrai = std::filesystem::weakly_canonical(chemin, erreur).string();
    const std::string verrou = FichierVerrou(moyens_, "bibliotheque-" + (erreur ? chemin : vrai));
    Ouverture o = zenikcom::LiaisonBibliotheque(chemin, verrou);
    if (o.refus == Refus::SymboleManquant) return RefuseCarte(Textes::CarteSymbole, o.detail);
    if (o.refus == Refus::Occupee) return RefuseCarte(Textes::CarteOccupee, o.detail);
    if (o.liaison == nullptr) return RefuseCarte(Textes::CarteBibliotheque, o.detail);
    if (o.liaison->EstConnectee() == 1 && AutreLettre(*o.liaison)) return RefuseCarte(Textes::CarteAutreLettre);
    Prend(GenreCarte::Bibliotheque, std::move(o.liaison));
  }

  void PrendVirtuelle() {
    zenikcom::ConditionsCarte conditions;
    conditions.fichier = moyens_.fichier;
    conditions.horloge = moyens_.horloge;
    conditions.attend = moyens_.attend;
    conditions.rapide = moyens_.rapide;
    carte_.virtuelle = zenikcom::CreeCarteVirtuelle(std::move(conditions));
    if (!carte_.virtuelle) return RefuseCarte(Textes::CarteOccupee, moyens_.fichier);
    carte_.virtuelle->Fautes(moyens_.fautes);
    const zenikcom::FichierCarte fichier = carte_.virtuelle->Fichier();
    if (!fichier.misDeCote.empty()) {
      RefuseCarte(Textes::CarteFichierEndommage, fichier.chemin + ": " + fichier.raison + "\n" + fichier.misDeCote);
    } else if (!fichier.raison.empty()) {
      RefuseCarte(Textes::CarteFichierRefuse, fichier.chemin + ": " + fichier.raison);
    }
    Prend(GenreCarte::Virtuelle, zenikcom::LiaisonVirtuelle(carte_.virtuelle));
  }

  void Prend(GenreCarte genre, std::unique_ptr<Liaison> liaison) {
    carte_.genre = genre;
    carte_.liaison = std::move(liaison);
  }

  const ReglageCarte& reglage_;
  const MoyensCarte& moyens_;
  CarteChoisie carte_;
};

// The machine moves, as far as the board says, or somebody holds the board.
bool MachinePrise() {
  if (OperationCarte || RunActif) return true;
  if (!CdeZENIK || !CdeZENIK->IsAvailable()) return false;
  CdeZENIK->DemandeInformation();
  return CdeZENIK->EnCours != Faux;
}

}  // namespace

ReglageCarte LitReglageCarte() {
  return {LireCleIni(cles::CarteZENIK, ReglageCarte{}.carte), LireCleIni(cles::CarteZENIK_USB, "")};
}

std::string TexteRefus(const RefusCarte& refus) {
  const std::string suite = refus.raison.empty() ? "" : "\n" + refus.raison;
  return Traduire(refus.texte) + " " + refus.cle + "=" + refus.valeur + suite;
}

MoyensCarte MoyensOrdinaires() {
  MoyensCarte moyens;
  if (!DossierProgramme.empty()) moyens.fichier = DossierProgramme + "/" + FichierVirtuelle;
  std::error_code erreur;
  moyens.dossierVerrous = std::filesystem::temp_directory_path(erreur).string();
  moyens.horloge = [] { return std::llround(Svc.Horloge() * static_cast<double>(zenikcom::NsParSeconde)); };
  moyens.attend = [](std::int64_t ns) {
    Svc.Attend(static_cast<double>(ns) / static_cast<double>(zenikcom::NsParSeconde));
  };
  return moyens;
}

CarteChoisie ChoisitCarte(const ReglageCarte& reglage, const MoyensCarte& moyens) {
  return Choix(reglage, moyens).Fait();
}

std::vector<RefusCarte> InstalleCarte(const MoyensCarte& moyens) {
  CarteChoisie choisie = ChoisitCarte(LitReglageCarte(), moyens);
  LaCarte = {choisie.genre, choisie.virtuelle, "", LaCarte.rang + 1};
  if (choisie.virtuelle) LaCarte.raisonDite = choisie.virtuelle->Fichier().raison;
  auto neuve = std::make_unique<ClsCdeZENIK>(std::move(choisie.liaison));
  if (CdeZENIK) neuve->Reprend(*CdeZENIK);
  CdeZENIK = std::move(neuve);
  CdeZENIK->ChargeParametres();
  return std::move(choisie.refus);
}

void FermeCarte() {
  CdeZENIK = std::make_unique<ClsCdeZENIK>();
  LaCarte = {GenreCarte::Aucune, nullptr, "", LaCarte.rang};
}

// The old board goes first: both may have one lock.
bool ChangeCarte(const ReglageCarte& reglage, const MoyensCarte& moyens) {
  if (MachinePrise()) {
    Message(Textes::CarteBouge, Icone::Exclamation);
    return false;
  }
  {
    const SansProjet reglages;
    EcrireCle(cles::CarteZENIK, reglage.carte);
    EcrireCle(cles::CarteZENIK_USB, reglage.usb);
  }
  // What has been told and answered holds on.
  auto dit = std::make_unique<ClsCdeZENIK>();
  dit->Reprend(*CdeZENIK);
  FermeCarte();
  CdeZENIK = std::move(dit);
  DitRefus(InstalleCarte(moyens));
  if (!TableReprise.empty()) {  // what was stopped on the old board is at no place of the new one
    AttendCarte = false;
    PlacePerdue = true;
  }
  if (!CdeZENIK->IsAvailable()) return true;
  CdeZENIK->ResetBuffer();
  CdeZENIK->TableVerif();
  return true;
}

bool DemandeCarte(const MoyensCarte& moyens) {
  const ReglageCarte present = LitReglageCarte();
  ReglageCarte voulu = present;
  const bool parIdentite = Majuscules(Rogne(present.carte)) == Usb;
  const std::string dit = Rogne(
      Svc.Saisit(Textes::ChoixDeCarte, Traduire(Textes::ChoixDeCarte), parIdentite ? present.usb : present.carte));
  if (dit.empty()) return false;
  if (zenikcom::LitIdentiteUsb(dit)) {
    voulu = {"usb", dit};
  } else {
    voulu.carte = dit;
  }
  if (voulu == present) return false;
  return ChangeCarte(voulu, moyens);
}

void DitRefus(const std::vector<RefusCarte>& refus) {
  for (const RefusCarte& r : refus) {
    BoiteMessage boite = BoiteDe(r.texte, Icone::Exclamation);
    boite.texte = TexteRefus(r);
    Svc.Montre(boite);
  }
}

std::optional<RefusCarte> RefusFichierCarte() {
  if (!LaCarte.virtuelle) return std::nullopt;
  LaCarte.virtuelle->Enregistre();
  const zenikcom::FichierCarte fichier = LaCarte.virtuelle->Fichier();
  if (std::exchange(LaCarte.raisonDite, fichier.raison) == fichier.raison || fichier.raison.empty()) {
    return std::nullopt;
  }
  return RefusCarte{Textes::CarteFichierRefuse, cles::CarteZENIK, LitReglageCarte().carte,
                    fichier.chemin + ": " + fichier.raison};
}

CleTexte NomCarte() {
  if (LaCarte.genre == GenreCarte::Virtuelle) return Textes::CarteVirtuelle;
  return CdeZENIK && CdeZENIK->IsAvailable() ? Textes::CarteUsb : Textes::CarteAbsente;
}

}  // namespace ovelin
