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
#include "core/Textes.h"
#include "core/Traduction.h"
#include "machine/TableCourante.h"
#include "run/Module_Dialecte.h"
#include "run/Module_Planificateur.h"
#include "run/NoyauPlan.h"

namespace ovelin {

std::string NomFichierNC;

namespace {

[[maybe_unused]] const bool Enregistree = EnregistreRemise([] { NomFichierNC.clear(); });

void MessageErreur(CleTexte texte, const std::string& suite = "", const std::string& fichier = "") {
  MessageFichier(texte, suite, Icone::Critique, fichier);
}

std::string Version() {
  return std::to_string(OVELIN_VERSION_MAJEURE) + "." + std::to_string(OVELIN_VERSION_MINEURE) + "." +
         std::to_string(OVELIN_VERSION_REVISION);
}

// Numbers in comments are for the eye: the user's decimal mark, no rule on digits.
CadreNC Cadre() {
  CadreNC cadre;
  const auto ligne = [&](const std::string& texte) { cadre.presentation.push_back(texte); };
  const auto valeur = [&](CleTexte texte, auto v) { ligne(" " + Traduire(texte) + " " + TexteNombre(v)); };
  ligne(Traduire(Textes::NCGenerePar) + " " + NomProgramme + " Version " + Version());
  ligne(Traduire(Textes::NCAVerifier));
  ligne(Traduire(Textes::NCUnitesEntete));
  ligne("");
  valeur(Textes::NCVitesseMatiere, Vitesse_Mat_H);
  valeur(Textes::NCVitesseDescente, Vitesse_Mat_V);
  valeur(Textes::NCVitesseMaxX, VitesseMaxX);
  valeur(Textes::NCVitesseMaxY, VitesseMaxY);
  valeur(Textes::NCVitesseMaxZ, VitesseMaxZ);
  valeur(Textes::NCHauteurDegagement, HautDeg);
  valeur(Textes::NCProfondeurFraisage, ProfFraisage);
  valeur(Textes::NCProfondeurPasse, ProfPasse);
  if (DecalageOutil != 2) valeur(Textes::NCRayonOutil, RayonFraise);
  cadre.unites = Traduire(Textes::NCMillimetres);
  cadre.absolu = Traduire(Textes::NCCoordonneesAbsolues);
  cadre.broche = Traduire(Textes::NCMarcheBroche);
  cadre.arret = Traduire(Textes::NCArretBroche);
  cadre.fin = Traduire(Textes::NCFin);
  cadre.vitesseBroche = Regl.VitesseBroche;
  cadre.attenteBroche = Regl.AttenteBroche;
  return cadre;
}

// The save dialog's answer, or the path that was given.
std::string CheminNC(const std::string& chemin, const Dialecte& dialecte) {
  if (!chemin.empty()) return chemin;
  DialogueFichier dialogue;
  dialogue.enregistrer = true;
  dialogue.cle = "Btn_Gener_GCODE";
  dialogue.titre = dialecte.prescrit ? "NC" : dialecte.titre;
  dialogue.motif = "*." + dialecte.extension;
  dialogue.filtre = dialogue.titre + " (" + dialogue.motif + ")";
  dialogue.propose = NomFichierNC;
  return Svc.ChoisitFichier(dialogue);
}

ErreurSysteme EcritTravail(const std::string& chemin, const Dialecte& dialecte, EcritureNC& resultat) {
  try {
    const std::string texte = ComposeNC(LignesDe(Plan), Cadre(), dialecte, resultat);
    return resultat.tropLongues > 0 ? ErreurSysteme{} : EcritFichierEntier(chemin, texte);
  } catch (const std::bad_alloc&) {
    return "Cannot allocate memory";
  }
}

}  // namespace

bool EcritGCode(const std::string& chemin, EcritureNC& resultat) {
  if (TraceDecale.empty()) {
    MessageErreur(Textes::SansTrajet);
    return false;
  }
  if (!VitessesValables(Regl, Table)) {
    MessageErreur(Textes::VitesseNulle, "\n" + Traduire(Textes::VerifiezVitesses));
    return false;
  }
  const auto dialecte = DialecteEnVigueur();
  if (!dialecte) return false;
  resultat = EcritureNC{};
  // No machine is needed and no step is looked at. They stay so until the board's tables are checked next.
  CdeZENIK->FixeResolutions(1.0, 1.0, 1.0);
  if (!Tableau_Decoupe()) return false;
  const std::string choisi = CheminNC(chemin, *dialecte);
  if (choisi.empty()) return false;
  NomFichierNC = choisi;
  if (dialecte->prescrit && ExtensionDe(choisi) != "NC") {
    MessageErreur(Textes::NCExtension, "", choisi);
    return false;
  }
  const ErreurSysteme raison = EcritTravail(choisi, *dialecte, resultat);
  if (resultat.tropLongues > 0) {
    MessageErreur(Textes::DialecteLignes, " " + std::to_string(resultat.tropLongues), choisi);
    return false;
  }
  if (!raison.empty()) {
    MessageErreur(Textes::NCNonEcrit, "\n" + choisi + " : " + raison, choisi);
    return false;
  }
  return true;
}

}  // namespace ovelin
