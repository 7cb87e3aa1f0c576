#include "core/Projet.h"

#include <cstdint>
#include <filesystem>
#include <new>
#include <span>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "core/Avancement.h"
#include "core/BoiteRefus.h"
#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/Etat.h"
#include "core/Lignes.h"
#include "core/MagasinFichiers.h"
#include "core/ProjetTexte.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "core/Traduction.h"

namespace ovelin {

CrochetsProjet Crochets;

namespace {

[[maybe_unused]] const bool Enregistree = EnregistreRemise([] { Crochets = CrochetsProjet{}; });

// Points and bytes from which a file is worth a thread: below, it is there in some milliseconds.
constexpr std::size_t SeuilFondPoints = 5000;
constexpr std::uintmax_t SeuilFondOctets = 300000;

ErreurSysteme MemoireManque() {
  return std::generic_category().message(static_cast<int>(std::errc::not_enough_memory));
}

// What a project holds behind its settings.
struct Chemins {
  std::span<const PointTrace> points;
  std::span<const SequenceInfo> sequences;
  const TableComplements& complements;
  double largeurEncoche, miniEncoche;
};

// The whole file in memory, and on disk; nothing of the document is touched. `texte`: the settings lines.
ErreurSysteme Ecrit(const std::string& chemin, std::string texte, const Chemins& c, Garantie garantie) {
  try {
    ComposeSequences(texte, c.points, c.sequences, c.complements);
    ComposePoints(texte, c.points);
    ComposeEncoches(texte, c.largeurEncoche, c.miniEncoche);
    return EcritFichierEntier(chemin, texte, garantie);
  } catch (const std::bad_alloc&) {
    return MemoireManque();
  }
}

// The end of the file is missing. What was whole stands.
void AvertitTronque(const std::string& chemin) {
  MessageFichier(Textes::FichierTronque, "\n" + chemin, Icone::Exclamation, chemin);
}

bool MontreRefus(const RefusFichier& refus) {
  Svc.Montre(BoiteRefus(refus));
  return false;
}

// The reading, on a thread when it is worth one. Either way the count of the drawing that stood is gone.
ProjetLu LitEnFond(const std::string& chemin, ProjetLu (*lecture)(const std::string&)) {
  NbPoints = 0;
  std::error_code erreur;
  const std::uintmax_t taille = std::filesystem::file_size(chemin, erreur);
  ProjetLu lu;
  TravailleSi(!erreur && taille >= SeuilFondOctets, [&] { lu = lecture(chemin); });
  return lu;
}

}  // namespace

std::string LignesReglages(const std::string& chemin) {
  std::string texte;
  {
    const LotCles lot;
    const magasin::Redirection redirection(chemin, texte);
    EcritMateriau();
    EcritCouleurs();
    EcritOptions();
    EcritOutil();
    EcritRampe();
  }
  return texte;
}

ErreurSysteme EcrireProjet(const std::string& chemin) {
  // Before any key is written, so that a refused save changes nothing at all.
  if (ErreurSysteme refus = EcritureRefusee(chemin); !refus.empty()) return refus;
  const Avancement avancement(Traduire(Textes::EnregistrementEnCours));
  ErreurSysteme erreur;
  try {
    const Garantie garantie = Instantane != Faux ? Garantie::Processus : Garantie::Disque;
    const std::string reglages = LignesReglages(chemin);
    const double largeur = Regl.LargeurEncoche;
    const double mini = Regl.MiniEncoche;
    if (TraceInitial.size() < SeuilFondPoints) {
      erreur = Ecrit(chemin, reglages, {TraceInitial, Sequences, Complements, largeur, mini}, garantie);
    } else {
      const std::vector<PointTrace> points = TraceInitial;
      const std::vector<SequenceInfo> sequences = Sequences;
      const TableComplements complements = Complements;
      Travaille([&] {
        erreur = Ecrit(chemin, reglages, {points, sequences, complements, largeur, mini}, garantie);
      });
    }
  } catch (const std::bad_alloc&) {
    erreur = MemoireManque();
  }
  magasin::OublieProjet(chemin);
  return erreur;
}

bool VerifierProjet(const ProjetLu& lu) {
  const Document& d = lu.document;
  NbPoints = d.NbPoints;
  if (NbPoints > 0) Xmin = d.Xmin, Xmax = d.Xmax, Ymin = d.Ymin, Ymax = d.Ymax;
  return lu.refus ? MontreRefus(*lu.refus) : true;
}

bool VerifierProjet(const std::string& chemin) { return VerifierProjet(LitEnFond(chemin, RecenseFichierProjet)); }

bool LireProjet(const std::string& chemin) {
  if (chemin.empty()) return false;
  return PrendProjet(chemin, LitEnFond(chemin, LitProjet));
}

bool PrendProjet(const std::string& chemin, ProjetLu&& lu) {
  Doc.EchelleX = 1.0;
  Doc.EchelleY = 1.0;
  const LotCles lot;  // some thirty keys out of one reading of the project
  if (!VerifierProjet(lu)) return false;
  if (chemin == FichierCourant) magasin::PoseProjet(chemin, lu.avant, std::move(lu.reglages));

  FichierProjet = "Chargt";
  LitMateriau();
  LitOutil();
  TraceInitial = std::move(lu.document.TraceInitial);
  Sequences = std::move(lu.document.Sequences);
  Complements = std::move(lu.document.Complements);
  if (lu.LargeurEncoche) Regl.LargeurEncoche = *lu.LargeurEncoche;
  if (lu.MiniEncoche) Regl.MiniEncoche = *lu.MiniEncoche;
  if (Crochets.ChercheMateriau != nullptr) Crochets.ChercheMateriau();
  CompleteSequences(Sequences, TraceInitial, Regl.ProfFraisage);
  if (Crochets.ChargeTable != nullptr) Crochets.ChargeTable();
  LitCouleurs();
  LitOptions();
  if (lu.tronque) AvertitTronque(chemin);
  return true;
}

}  // namespace ovelin
