#include "run/Module_GCode.h"

#include <new>
#include <string_view>

#include "controller/ClsCdeZENIK.h"
#include "core/DocumentCourant.h"
#include "core/Etat.h"
#include "core/Fichiers.h"
#include "core/Nombres.h"
#include "core/PlanCourant.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "core/Traduction.h"
#include "machine/TableCourante.h"
#include "run/Module_Planificateur.h"
#include "run/NoyauPlan.h"

namespace ovelin {

std::string NomFichierNC;

namespace {

[[maybe_unused]] const bool remiseNomFichierNC = EnregistreRemise([] { NomFichierNC.clear(); });

constexpr const char* Section = "F_Fraisage";

std::string T(std::string_view cle) { return Traduire(Section, cle); }

void MessageErreur(std::string_view cle, const std::string& suite = "", const std::string& fichier = "") {
  MessageFichier(Section, cle, suite, Icone::Critique, fichier);
}

std::string Version() {
  return std::to_string(OVELIN_VERSION_MAJEURE) + "." + std::to_string(OVELIN_VERSION_MINEURE) + "." +
         std::to_string(OVELIN_VERSION_REVISION);
}

// Numbers in comments are for the eye: the user's decimal mark, no rule on digits.
CadreNC Cadre() {
  CadreNC cadre;
  const auto ligne = [&](const std::string& texte) { cadre.presentation.push_back(texte); };
  const auto valeur = [&](std::string_view cle, auto v) { ligne(" " + T(cle) + " " + TexteNombre(v)); };
  ligne(T("lib044") + " " + NomProgramme + " Version " + Version());
  ligne(T("lib044_1"));
  ligne(T("lib045"));
  ligne("");
  valeur("lib046", Vitesse_Mat_H);
  valeur("lib047", Vitesse_Mat_V);
  valeur("lib048", VitesseMaxX);
  valeur("lib049", VitesseMaxY);
  valeur("lib050", VitesseMaxZ);
  valeur("lib051", HautDeg);
  valeur("lib052", ProfFraisage);
  valeur("lib053", ProfPasse);
  if (DecalageOutil != 2) valeur("lib054", RayonFraise);
  cadre.unites = T("lib057");
  cadre.absolu = T("lib058");
  cadre.broche = T("lib060");
  cadre.arret = T("lib071");
  cadre.fin = T("lib072");
  return cadre;
}

// The save dialog's answer, or the path that was given.
std::string CheminNC(const std::string& chemin) {
  if (!chemin.empty()) return chemin;
  DialogueFichier dialogue;
  dialogue.enregistrer = true;
  dialogue.cle = "Btn_Gener_GCODE";
  dialogue.titre = "NC";
  dialogue.filtre = "NC (*.nc)";
  dialogue.motif = "*.nc";
  dialogue.propose = NomFichierNC;
  return Svc.ChoisitFichier(dialogue);
}

ErreurSysteme EcritTravail(const std::string& chemin, EcritureNC& resultat) {
  try {
    return EcritFichierEntier(chemin, ComposeNC(LignesDe(Plan), Cadre(), resultat));
  } catch (const std::bad_alloc&) {
    return "Cannot allocate memory";
  }
}

}  // namespace

bool EcritGCode(const std::string& chemin, EcritureNC& resultat) {
  if (TraceDecale.empty()) {
    MessageErreur("lib040");
    return false;
  }
  if (!VitessesValables(Regl, Table)) {
    MessageErreur("lib041", "\n" + T("lib042"));
    return false;
  }
  resultat = EcritureNC{};
  // No machine is needed and no step is looked at. They stay so until the board's tables are checked next.
  CdeZENIK->FixeResolutions(1.0, 1.0, 1.0);
  if (!Tableau_Decoupe()) return false;
  const std::string choisi = CheminNC(chemin);
  if (choisi.empty()) return false;
  NomFichierNC = choisi;
  if (ExtensionDe(choisi) != "NC") {
    MessageErreur("lib037", "", choisi);
    return false;
  }
  const ErreurSysteme raison = EcritTravail(choisi, resultat);
  if (!raison.empty()) {
    MessageErreur("lib043", "\n" + choisi + " : " + raison, choisi);
    return false;
  }
  return true;
}

}  // namespace ovelin
