// Reader of DXF drawings, text and binary, of every release from 2.6 to 2018.
//
// The file is gone through twice: first for what may stand anywhere (units, layers, where blocks and entities are),
// then the entities are drawn one by one as they come. A long section of entities is gone through once, and by
// several threads: it is cut where an entity seems to begin, its end is looked for as text, and both prove true
// when each stretch, read group by group, ends where the next one begins. Whatever else is met is left to one
// drawer, who begins anew, so that a file is refused for the same reason, in the same line, however it is cut.
// Blocks are never kept but read again where they are inserted, so that memory follows the drawing and not its
// nesting, and curves are cut into chords in the final frame, where the tolerance holds whatever the scales on the
// way.
#include "closed/pathwerk/lecture/dxf/Dxf.h"

#include <new>

#include "closed/pathwerk/lecture/dxf/Dessin.h"
#include "closed/pathwerk/lecture/dxf/DessinCoupe.h"

namespace pathwerk::lecture::dxf {

namespace {

// Memory follows the stretches that are being read, and the threads meet at their ends.
constexpr std::size_t OctetsParTranche = 1U << 20;

void Lit(std::string_view data, const OptionsLecture& options, Lecture& lecture, const Decoupe& decoupe) {
  LecteurGroupes lecteur(data);
  Sommaire sommaire = LitSommaire(lecteur, decoupe);
  const bool coupe = sommaire.Coupe();
  const bool dessine = coupe && !sommaire.faux && DessineCoupe(lecteur, sommaire, options, lecture);
  if (coupe && !dessine) {
    lecteur = LecteurGroupes(data);
    sommaire = LitSommaire(lecteur);
  }
  lecture.rapport.Tronque = sommaire.tronque;
  if (sommaire.faux) {
    lecture.Refuse(Erreur::Dxf, sommaire.ligne, sommaire.detail);
    return;
  }
  lecture.ordreImpose = sommaire.propre;
  if (dessine) return;
  Limites limites(lecteur.Taille());
  Dessinateur(lecteur, sommaire, options, lecture, limites).Dessine();
}

}  // namespace

void LireDxf(std::string_view data, const OptionsLecture& options, Lecture& lecture) {
  LireDxf(data, options, lecture, OctetsParTranche);
}

void LireDxf(std::string_view data, const OptionsLecture& options, Lecture& lecture, std::size_t octetsParTranche) {
  lecture.rapport.Format = "DXF";
  try {
    Lit(data, options, lecture, {octetsParTranche, options.Fils});
  } catch (const std::bad_alloc&) {
    lecture.traits = {};
    lecture.Refuse(Erreur::Memoire, 0, {});
  }
}

}  // namespace pathwerk::lecture::dxf
