#include "core/Projet.h"

#include <cstdint>
#include <filesystem>
#include <limits>
#include <new>
#include <span>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/Etat.h"
#include "core/Lignes.h"
#include "core/MagasinFichiers.h"
#include "core/ProjetTexte.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "core/Traduction.h"

namespace ovelin {

CrochetsProjet Crochets;

namespace {

[[maybe_unused]] const bool enregistree = EnregistreRemise([] { Crochets = CrochetsProjet{}; });

// Points and bytes from which a file is worth a thread: below, it is there in some milliseconds.
constexpr std::size_t SeuilFondPoints = 5000;
constexpr std::uintmax_t SeuilFondOctets = 300000;

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

ErreurSysteme MemoireManque() {
  return std::generic_category().message(static_cast<int>(std::errc::not_enough_memory));
}

// The whole file in memory, and on disk; nothing of the document is touched. `texte`: the settings lines.
ErreurSysteme Ecrit(const std::string& chemin, std::string texte, std::span<const PointTrace> points,
                    std::span<const SequenceInfo> sequences, double largeurEncoche, double miniEncoche,
                    Garantie garantie) {
  try {
    ComposeSequences(texte, points, sequences);
    ComposePoints(texte, points);
    ComposeEncoches(texte, largeurEncoche, miniEncoche);
    return EcritFichierEntier(chemin, texte, garantie);
  } catch (const std::bad_alloc&) {
    return MemoireManque();
  }
}

// The end of the file is missing. What was whole stands.
void AvertitTronque(const std::string& chemin) {
  MessageFichier("erreurs", "102", "\n" + chemin, Icone::Exclamation, chemin);
}

bool Refuse(const std::string& chemin, std::string_view section, std::string_view cle,
            const std::string& suite = "") {
  MessageFichier(section, cle, suite, Icone::Critique, chemin);
  return false;
}

// A project as it was read, nothing of the document touched yet.
struct Lecture {
  bool lue = false;
  ErreurSysteme raison;  // why not
  bool memoire = false;  // for want of memory
  bool tronque = false;  // the end of the file is missing
  ContenuProjet contenu;
  magasin::Reglages reglages;
};

Lecture Lit(const std::string& chemin, bool tout) {
  Lecture l;
  try {
    const auto octets = LitFichierEntier(chemin, &l.raison);
    if (!octets) return l;
    if (tout) {
      l.contenu = LitTexteProjet(*octets);
      l.reglages = IndexeReglages(*octets);
      l.tronque = EstTronque(*octets);
    } else {
      l.contenu.Recensement = RecenseProjet(*octets);
    }
    l.lue = true;
  } catch (const std::bad_alloc&) {
    l.memoire = true;
  }
  return l;
}

// The reading, on a thread when it is worth one; what could not be read is told. Either way the count of the
// drawing that stood is gone.
Lecture LitOuRefuse(const std::string& chemin, bool tout) {
  NbPoints = 0;
  std::error_code erreur;
  const std::uintmax_t taille = std::filesystem::file_size(chemin, erreur);
  Lecture l;
  TravailleSi(!erreur && taille >= SeuilFondOctets, [&] { l = Lit(chemin, tout); });
  if (l.memoire) {
    Refuse(chemin, "F_Representation", "lib114");
  } else if (!l.lue) {
    Refuse(chemin, "F_Representation", "lib110", "\n" + chemin + ": " + l.raison);
  }
  return l;
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
  ErreurSysteme erreur;
  try {
    const Garantie garantie = Instantane != Faux ? Garantie::Processus : Garantie::Disque;
    const std::string reglages = LignesReglages(chemin);
    const auto ecrit = [&chemin, &reglages, garantie, &erreur, largeur = Regl.LargeurEncoche,
                        mini = Regl.MiniEncoche](std::span<const PointTrace> points,
                                                 std::span<const SequenceInfo> sequences) {
      erreur = Ecrit(chemin, reglages, points, sequences, largeur, mini, garantie);
    };
    if (TraceInitial.size() < SeuilFondPoints) {
      ecrit(TraceInitial, Sequences);
    } else {
      const std::vector<PointTrace> points = TraceInitial;
      const std::vector<SequenceInfo> sequences = Sequences;
      Travaille([&] { ecrit(points, sequences); });
    }
  } catch (const std::bad_alloc&) {
    erreur = MemoireManque();
  }
  magasin::OublieProjet(chemin);
  return erreur;
}

bool VerifierProjet(const std::string& chemin) {
  const Lecture l = LitOuRefuse(chemin, false);
  return l.lue && Verifie(chemin, l.contenu.Recensement);
}

bool LireProjet(const std::string& chemin) {
  if (chemin.empty()) return false;
  Doc.EchelleX = 1.0;
  Doc.EchelleY = 1.0;
  const LotCles lot;  // some thirty keys out of one reading of the project
  const magasin::Empreinte avant = magasin::Releve(chemin);
  Lecture l = LitOuRefuse(chemin, true);
  if (!l.lue || !Verifie(chemin, l.contenu.Recensement)) return false;
  if (chemin == FichierCourant) magasin::PoseProjet(chemin, avant, std::move(l.reglages));

  FichierProjet = "Chargt";
  LitMateriau();
  LitOutil();
  TraceInitial = std::move(l.contenu.Points);
  Sequences = std::move(l.contenu.Sequences);
  if (l.contenu.LargeurEncoche) Regl.LargeurEncoche = *l.contenu.LargeurEncoche;
  if (l.contenu.MiniEncoche) Regl.MiniEncoche = *l.contenu.MiniEncoche;
  if (Crochets.ChercheMateriau != nullptr) Crochets.ChercheMateriau();
  CompleteSequences(Sequences, TraceInitial, Regl.ProfFraisage);
  if (Crochets.ChargeTable != nullptr) Crochets.ChargeTable();
  LitCouleurs();
  LitOptions();
  if (l.tronque) AvertitTronque(chemin);
  return true;
}

}  // namespace ovelin
