// Reader of DXF drawings, text and binary, of every release from 2.6 to 2018.
//
// The file is gone through twice: first for what may stand anywhere (units, layers, where blocks and entities are),
// then the entities are drawn one by one as they come. Blocks are never kept but read again where they are
// inserted, so that memory follows the drawing and not its nesting, and curves are cut into chords in the final
// frame, where the tolerance holds whatever the scales on the way.
#include "closed/pathwerk/lecture/dxf/Dxf.h"

#include <new>

#include "closed/pathwerk/lecture/dxf/Dessin.h"

namespace pathwerk::lecture::dxf {

void LireDxf(std::string_view data, const OptionsLecture& options, Lecture& lecture) {
  lecture.rapport.Format = "DXF";
  try {
    dxf::LecteurGroupes lecteur(data);
    dxf::Sommaire sommaire = dxf::LitSommaire(lecteur);
    lecture.rapport.Tronque = sommaire.tronque;
    if (sommaire.faux) {
      lecture.Refuse(Erreur::Dxf, sommaire.ligne, sommaire.detail);
      return;
    }
    lecture.ordreImpose = sommaire.propre;
    dxf::Dessinateur(lecteur, sommaire, options, lecture).Dessine();
  } catch (const std::bad_alloc&) {
    lecture.traits = {};
    lecture.Refuse(Erreur::Memoire, 0, {});
  }
}

}  // namespace pathwerk::lecture::dxf
