// The end of the program, the lock against a second copy.
#include "workspace/FinCycle.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

#include "core/Avancement.h"
#include "core/Cles.h"
#include "core/ClesReglages.h"
#include "core/DocumentCourant.h"
#include "core/Dossiers.h"
#include "core/Fichiers.h"
#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "core/RunCourant.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "core/Traduction.h"
#include "workspace/Module_Annulation.h"
#include "workspace/Module_Cycle.h"
#include "workspace/Module_Recents.h"

namespace ovelin {

namespace {

constexpr const char* Fenetre = "F_Representation";
constexpr const char* NomVerrouCopie = ".verrou";
constexpr const char* NomCopieIni = "OVELIN.inisav";
int VerrouCopie = -1;  // held as long as this copy of the program runs

void EcritQuatreGroupes() {
  EcritMateriau();
  EcritCouleurs();
  EcritOptions();
  EcritOutil();
}

void EcritParametres() {
  const Avancement cadre(Traduire(Textes::EnregistrementEnCours));
  const LotCles lot;
  EcritQuatreGroupes();
}

void EcritCleFenetre(const char* suffixe, long valeur) {
  EcrireCle(std::string(Fenetre) + suffixe, TexteNombre(valeur));
}

// A maximised window keeps the place that it had before.
void EcritPlace(const EtatFenetre& f) {
  if (f.minimisee || f.place.maximisee) return;
  EcritCleFenetre(cles::suffixe::Gauche, f.place.gauche);
  EcritCleFenetre(cles::suffixe::Haut, f.place.haut);
  EcritCleFenetre(cles::suffixe::Largeur, f.place.largeur);
  EcritCleFenetre(cles::suffixe::Hauteur, f.place.hauteur);
}

void EcritPlacement(const EtatFenetre& f) {
  EcritPlace(f);
  EcritCleFenetre(cles::suffixe::Maximisee, f.place.maximisee ? -1 : 0);
  EcritCleFenetre(cles::suffixe::Materiau, f.indexBD);
  const SansProjet reglages;
  EcritCleFenetre(cles::suffixe::Panneau, f.panneau);
}

// The settings file makes room for a fresh one where that was wanted; otherwise the user gets a copy. No failure is
// told: the program ends.
void FinIni(const std::string& documents) {
  std::error_code erreur;
  if (Cycle.RemiseDefauts) {
    if (Message(Textes::RemetDefauts, Icone::Exclamation, Boutons::OuiNon) != Reponse::Oui) return;
    const std::string sauvee = DossierProgramme + "/" + NomCopieIni;
    std::filesystem::remove(sauvee, erreur);
    std::filesystem::rename(CheminIni(), sauvee, erreur);
    OublieCles();
    return;
  }
  if (documents.empty() || !std::filesystem::is_directory(documents, erreur)) return;
  if (const auto octets = LitFichierEntier(CheminIni())) {
    EcritFichierEntier(documents + "//" + NomCopieIni, *octets);
  }
}

}  // namespace

bool VerrouilleCopie() {
  if (VerrouCopie >= 0) return false;  // this copy holds it
  const std::string nom = DossierProgramme + "/" + NomVerrouCopie;
  const int fd = open(nom.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
  if (fd < 0) return false;
  while (flock(fd, LOCK_EX | LOCK_NB) != 0) {
    if (errno == EINTR) continue;
    const bool tenu = errno == EWOULDBLOCK;
    close(fd);
    return tenu;
  }
  VerrouCopie = fd;
  return false;
}

void LibereCopie() {
  if (VerrouCopie >= 0) close(VerrouCopie);
  VerrouCopie = -1;
}

bool DemandeFermeture(const CrochetsFermeture& crochets, const std::string& titre) {
  if (crochets.FermeFenetres && !crochets.FermeFenetres()) return false;
  if (Rogne(FichierProjet).empty()) {
    EcritParametres();
    return true;
  }
  if (Modifie == Faux) return true;
  switch (Message(Textes::EnregistreModifie, Icone::Question, Boutons::OuiNonAnnuler, titre)) {
    case Reponse::Non:
      return true;
    case Reponse::Oui:
      if (crochets.Sauve) crochets.Sauve();
      // Still modified: the save was refused, or its dialog left without a name. The work must not be lost.
      return Modifie == Faux;
    default:
      return false;
  }
}

void DechargeFenetre(const EtatFenetre& fenetre, const std::string& documents) {
  FinProgramme = true;
  {
    const Avancement cadre(Traduire(Textes::EnregistrementEnCours));
    const LotCles lot;
    SauveRecents();
    EcritPlacement(fenetre);
  }
  FinIni(documents);
  EffaceTousInstantanes();
}

void TermineSansQuestion(const EtatFenetre& fenetre, const std::string& documents, bool gardeInstantanes) {
  FinProgramme = true;
  {
    const SansProjet reglages;
    const LotCles lot;
    EcritQuatreGroupes();
    SauveRecents();
    EcritPlacement(fenetre);
  }
  Cycle.RemiseDefauts = false;
  FinIni(documents);
  if (!gardeInstantanes) EffaceTousInstantanes();
}

// The load of the window looks into the settings file alone; a large project isn't written anew for each new size.
void RetaillePlacement(const EtatFenetre& fenetre) {
  const SansProjet reglages;
  const LotCles lot;
  EcritPlace(fenetre);
}

}  // namespace ovelin
