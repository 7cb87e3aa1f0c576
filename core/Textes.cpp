#include "core/Textes.h"

namespace ovelin {

// No default: the compiler asks for the text of an error that is new in the library.
std::optional<CleTexte> TexteErreur(std::int32_t numero) {
  using pathwerk::Erreur;
  if (numero == ErreurTropPeuDePoints) return Textes::TropPeuDePoints;
  switch (static_cast<Erreur>(numero)) {
    case Erreur::Aucune:
      return std::nullopt;
    case Erreur::Ouverture:
      return Textes::LectureRefusee;
    case Erreur::FormatInconnu:
      return Textes::FormatInconnu;
    case Erreur::TropDeSequences:
      return Textes::TropDeSequences;
    case Erreur::Coordonnee:
      return Textes::CoordonneeHorsLimites;
    case Erreur::Memoire:
      return Textes::MemoireManque;
    case Erreur::Dxf:
      return Textes::DxfRefuse;
    case Erreur::BlocCyclique:
      return Textes::DxfBlocCyclique;
    case Erreur::Hpgl:
      return Textes::HpglRefuse;
    case Erreur::Dat:
      return Textes::DatRefuse;
    case Erreur::Excellon:
      return Textes::ExcellonRefuse;
    case Erreur::EpsEntete:
      return Textes::EpsRefuse;
    case Erreur::GsAbsent:
      return Textes::GhostscriptAbsent;
    case Erreur::GsErreur:
      return Textes::GhostscriptRefus;
    case Erreur::GsDelai:
      return Textes::EpsDelai;
    case Erreur::GsVolume:
      return Textes::EpsVolume;
    case Erreur::Ecriture:
      return Textes::EcritureRefusee;
    case Erreur::Police:
      return Textes::PoliceInconnue;
    case Erreur::PoliceFichier:
      return Textes::PoliceIllisible;
    case Erreur::Svg:
      return Textes::SvgRefuse;
    case Erreur::Pdf:
      return Textes::PdfRefuse;
    case Erreur::PopplerAbsent:
      return Textes::PopplerAbsent;
  }
  return std::nullopt;
}

std::optional<CleTexte> TexteAvis(pathwerk::Avis avis) {
  using pathwerk::Avis;
  switch (avis) {
    case Avis::SansUnites:
      return Textes::UniteSupposee;
    case Avis::FormatDevine:
      return Textes::FormatSuppose;
    case Avis::Etendue:
      return Textes::DimensionsDouteuses;
    case Avis::Colonnes:
      return Textes::ColonnesDuTableau;
    case Avis::SansUniteSvg:
      return Textes::PixelsSupposes;
    case Avis::PoliceRemplacee:
      return Textes::PoliceRemplacee;
  }
  return std::nullopt;
}

}  // namespace ovelin
