#include "run/Module_GCode.h"

#include <cmath>
#include <new>
#include <string_view>

#include "controller/ClsCdeZENIK.h"
#include "core/Cadence.h"
#include "core/DocumentCourant.h"
#include "core/Etat.h"
#include "core/Fichiers.h"
#include "core/Nombres.h"
#include "core/PlanCourant.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "core/Traduction.h"
#include "machine/Module_Table.h"
#include "machine/TableCourante.h"
#include "run/LigneNC.h"
#include "run/Module_Planificateur.h"

namespace ovelin {

std::string NomFichierNC;

namespace {

[[maybe_unused]] const bool remiseNomFichierNC = EnregistreRemise([] { NomFichierNC.clear(); });

constexpr const char* Section = "F_Fraisage";

std::string T(std::string_view cle) { return Traduire(Section, cle); }

void MessageErreur(std::string_view cle, const std::string& suite = "", const std::string& fichier = "") {
  MessageFichier(Section, cle, suite, Icone::Critique, fichier);
}

// A speed that a row can have. Negative ones and what 32 bits can't hold make no F word either.
bool VitesseValable(double v) { return v > 0 && v <= 1e9; }

bool VitessesValables() {
  return VitesseValable(Vitesse_Mat_H) && VitesseValable(Vitesse_Mat_V) &&
         VitesseValable(static_cast<double>(VitesseMaxX)) && VitesseValable(static_cast<double>(VitesseMaxY)) &&
         VitesseValable(static_cast<double>(VitesseMaxZ));
}

std::string Version() {
  return std::to_string(OVELIN_VERSION_MAJEURE) + "." + std::to_string(OVELIN_VERSION_MINEURE) + "." +
         std::to_string(OVELIN_VERSION_REVISION);
}

// Numbers in comments are for the eye: the user's decimal mark, no rule on digits.
void EcritEntete(std::string& texte, EtatNC& etat) {
  const auto commentaire = [&](const std::string& contenu) { EcritCommentaireNC(texte, etat, contenu); };
  const auto valeur = [&](std::string_view cle, auto v) { commentaire(" " + T(cle) + " " + TexteNombre(v)); };
  commentaire(T("lib044") + " " + NomProgramme + " Version " + Version());
  commentaire(T("lib044_1"));
  commentaire(T("lib045"));
  commentaire("");
  valeur("lib046", Vitesse_Mat_H);
  valeur("lib047", Vitesse_Mat_V);
  valeur("lib048", VitesseMaxX);
  valeur("lib049", VitesseMaxY);
  valeur("lib050", VitesseMaxZ);
  valeur("lib051", HautDeg);
  valeur("lib052", ProfFraisage);
  valeur("lib053", ProfPasse);
  if (DecalageOutil != 2) valeur("lib054", RayonFraise);
  commentaire("");
  commentaire(T("lib057"));
  EcritMotNC(texte, etat, "G71");
  commentaire(T("lib058"));
  commentaire(T("lib060"));
  EcritMotNC(texte, etat, "M03");
}

void EcritFin(std::string& texte, EtatNC& etat) {
  EcritCommentaireNC(texte, etat, T("lib071"));
  EcritMotNC(texte, etat, "M05");
  EcritCommentaireNC(texte, etat, T("lib072"));
  EcritMotNC(texte, etat, "M02");
}

// The whole file in memory. `resultat` counts up while events run, so that a window shows it going.
std::string ComposeFichier(EcritureNC& resultat) {
  EtatNC etat;
  const auto montre = [&] {
    resultat.LongueurNC = etat.LongueurNC;
    resultat.TempsNC = etat.TempsNC;
    resultat.lignes = etat.lignes;
  };
  std::string texte;
  texte.reserve(4096 + static_cast<std::size_t>(NbDeplacements) * 24);
  EcritEntete(texte, etat);
  Cadence cadence;
  for (std::int32_t i = 2; i <= NbDeplacements; ++i) {
    const Deplacement& ligne = TableDecoupe[static_cast<std::size_t>(i)];
    EcritLigneNC(texte, etat, ligne.Vitesse, ligne.X, ligne.Y, ligne.Z);
    ++resultat.deplacements;
    if (cadence.Echeance()) {
      montre();
      cadence.Laisse();
    }
  }
  EcritFin(texte, etat);
  montre();
  return texte;
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
    return EcritFichierEntier(chemin, ComposeFichier(resultat));
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
  if (!VitessesValables()) {
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
