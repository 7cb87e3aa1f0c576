#include "core/Projet.h"

#include <limits>
#include <new>
#include <optional>
#include <system_error>
#include <utility>

#include "core/Cles.h"
#include "core/Document.h"
#include "core/Etat.h"
#include "core/MagasinFichiers.h"
#include "core/ProjetTexte.h"
#include "core/Reglages.h"
#include "core/Services.h"
#include "core/Traduction.h"

namespace ovelin {

CrochetsProjet Crochets;

namespace {

[[maybe_unused]] const bool enregistree = EnregistreRemise([] { Crochets = CrochetsProjet{}; });

constexpr double IntervalleEvenements = 0.015;  // s

// Progress of a save, taken away whatever happens.
class Avancement {
 public:
  Avancement() {
    Svc.AvancementDebut(Traduire("F_Representation", "Frame_Avancement"), 0);
    Svc.LaisseEvenements(Evenements::Affichage);
  }
  ~Avancement() { Svc.AvancementFin(); }
  Avancement(const Avancement&) = delete;
  Avancement& operator=(const Avancement&) = delete;
};

// The whole file in memory. The settings go through the key store, which hands back the lines meant for this file.
std::string Compose(const std::string& chemin) {
  std::string texte = LignesReglages(chemin);
  ComposeSequences(texte, TraceInitial, Sequences);
  double derniere = Svc.Horloge();
  ComposePoints(texte, TraceInitial, [&derniere] {
    const double maintenant = Svc.Horloge();
    if (maintenant - derniere < IntervalleEvenements) return;
    Svc.LaisseEvenements(Evenements::Affichage);
    derniere = maintenant;
  });
  ComposeEncoches(texte, Regl.LargeurEncoche, Regl.MiniEncoche);
  return texte;
}

bool Refuse(const std::string& chemin, const char* section, const char* cle, const std::string& suite = "") {
  Boite boite;
  boite.section = section;
  boite.cle = cle;
  boite.texte = Traduire(section, cle) + suite;
  boite.titre = NomProgramme;
  boite.icone = Icone::Critique;
  boite.fichier = chemin;
  Svc.Montre(boite);
  return false;
}

// The bytes of the file; nothing, with the system's reason shown, when it can't be read. Either way the count of
// the drawing that stood is gone.
std::optional<std::string> Lit(const std::string& chemin) {
  NbPoints = 0;
  ErreurSysteme raison;
  auto octets = LitFichierEntier(chemin, &raison);
  if (!octets) Refuse(chemin, "F_Representation", "lib110", "\n" + chemin + ": " + raison);
  return octets;
}

// Takes the count and the bounds of what has been read; refusals are shown.
bool Verifie(const std::string& chemin, const RecensementProjet& r) {
  const auto refuse = [&chemin](const char* cle) { return Refuse(chemin, "erreurs", cle); };
  // A file of empty lines could hold more of them than the count can tell.
  if (r.NbPoints == 0 || r.NbPoints > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max())) {
    return refuse("100");
  }
  NbPoints = static_cast<std::int32_t>(r.NbPoints);
  Xmin = r.Xmin, Xmax = r.Xmax, Ymin = r.Ymin, Ymax = r.Ymax;
  if (Xmin == Xmax && Ymin == Ymax) return refuse("101");
  return true;
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
  }
  return texte;
}

ErreurSysteme EcrireProjet(const std::string& chemin) {
  // Before any key is written, so that a refused save changes nothing at all.
  if (ErreurSysteme refus = EcritureRefusee(chemin); !refus.empty()) return refus;
  const Avancement avancement;
  try {
    const Garantie garantie = Instantane != Faux ? Garantie::Processus : Garantie::Disque;
    ErreurSysteme erreur = EcritFichierEntier(chemin, Compose(chemin), garantie);
    magasin::OublieProjet(chemin);
    return erreur;
  } catch (const std::bad_alloc&) {
    return std::generic_category().message(static_cast<int>(std::errc::not_enough_memory));
  }
}

bool VerifierProjet(const std::string& chemin) {
  const auto octets = Lit(chemin);
  return octets && Verifie(chemin, RecenseProjet(*octets));
}

bool LireProjet(const std::string& chemin) {
  if (chemin.empty()) return false;
  Doc.EchelleX = 1.0;
  Doc.EchelleY = 1.0;
  const LotCles lot;  // some thirty keys out of one reading of the project
  try {
    const auto octets = Lit(chemin);
    if (!octets) return false;
    ContenuProjet contenu = LitTexteProjet(*octets);
    if (!Verifie(chemin, contenu.Recensement)) return false;

    FichierProjet = "Chargt";
    LitMateriau();
    LitOutil();
    TraceInitial = std::move(contenu.Points);
    Sequences = std::move(contenu.Sequences);
    if (contenu.LargeurEncoche) Regl.LargeurEncoche = *contenu.LargeurEncoche;
    if (contenu.MiniEncoche) Regl.MiniEncoche = *contenu.MiniEncoche;
  } catch (const std::bad_alloc&) {
    return Refuse(chemin, "F_Representation", "lib114");
  }
  if (Crochets.ChercheMateriau != nullptr) Crochets.ChercheMateriau();
  CompleteSequences(Sequences, TraceInitial, Regl.ProfFraisage);
  if (Crochets.ChargeTable != nullptr) Crochets.ChargeTable();
  LitCouleurs();
  LitOptions();
  return true;
}

}  // namespace ovelin
