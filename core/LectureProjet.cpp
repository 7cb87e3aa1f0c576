#include "core/LectureProjet.h"

#include <cstddef>
#include <limits>
#include <new>
#include <string_view>
#include <utility>

#include "base/Indices.h"
#include "core/Fichiers.h"
#include "core/Lignes.h"
#include "core/ProjetTexte.h"
#include "core/Texte8.h"
#include "core/Textes.h"

namespace ovelin {

namespace {

void Refuse(ProjetLu& lu, const std::string& chemin, CleTexte texte, const std::string& suite = "") {
  lu.refus = RefusDe(texte, suite, chemin);
}

// Takes the count and the bounds of what has been read.
void Verifie(ProjetLu& lu, const std::string& chemin, const RecensementProjet& r) {
  // A file of empty lines could hold more of them than the count can tell.
  if (r.NbPoints == 0 || r.NbPoints > base::Indice(std::numeric_limits<std::int32_t>::max())) {
    Refuse(lu, chemin, Textes::ProjetVide, "\n" + chemin);
    return;
  }
  Document& d = lu.document;
  d.NbPoints = base::Compte(r.NbPoints);
  d.Xmin = r.Xmin, d.Xmax = r.Xmax, d.Ymin = r.Ymin, d.Ymax = r.Ymax;
  if (d.Xmin == d.Xmax && d.Ymin == d.Ymax) Refuse(lu, chemin, Textes::PointsConfondus, "\n" + chemin);
}

void LitTout(ProjetLu& lu, const std::string& chemin, std::string_view octets) {
  ContenuProjet contenu = LitTexteProjet(octets);
  Verifie(lu, chemin, contenu.Recensement);
  if (lu.refus) return;
  lu.document.TraceInitial = std::move(contenu.Points);
  lu.document.Sequences = std::move(contenu.Sequences);
  lu.document.Complements = std::move(contenu.Complements);
  lu.LargeurEncoche = contenu.LargeurEncoche;
  lu.MiniEncoche = contenu.MiniEncoche;
  lu.reglages = IndexeReglages(octets);
  lu.tronque = EstTronque(octets);
  for (const ValeurDouteuse& v : contenu.Douteuses) {
    lu.illisibles.push_back({chemin, v.ligne, DeTexte8(v.cle), DeTexte8(v.valeur)});
  }
}

// How much is read of a project, and how far it is trusted.
enum class Lecture { Recense, Entiere, Gardee };

ProjetLu Lit(const std::string& chemin, Lecture lecture) {
  ProjetLu lu;
  try {
    lu.avant = magasin::Releve(chemin);
    ErreurSysteme raison;
    const auto octets = LitFichierEntier(chemin, &raison);
    if (!octets) {
      Refuse(lu, chemin, Textes::LectureRefusee, "\n" + chemin + ": " + raison);
    } else if (lecture == Lecture::Gardee && !EstTexteProjet(*octets)) {
      Refuse(lu, chemin, Textes::PasProjet, "\n" + chemin);
    } else if (lecture != Lecture::Recense) {
      LitTout(lu, chemin, *octets);
    } else {
      Verifie(lu, chemin, RecenseProjet(*octets));
    }
  } catch (const std::bad_alloc&) {
    lu = ProjetLu{};
    Refuse(lu, chemin, Textes::MemoireManque, "\n" + chemin);
  }
  return lu;
}

}  // namespace

ProjetLu LitProjet(const std::string& chemin) { return Lit(chemin, Lecture::Entiere); }

ProjetLu LitProjetGarde(const std::string& chemin) { return Lit(chemin, Lecture::Gardee); }

ProjetLu RecenseFichierProjet(const std::string& chemin) { return Lit(chemin, Lecture::Recense); }

}  // namespace ovelin
