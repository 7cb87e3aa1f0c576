#include "closed/pathwerk/texte/Polices.h"

#include <fontconfig/fontconfig.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <set>
#include <tuple>

#include "base/Indices.h"
#include "closed/Pathwerk.h"

namespace pathwerk::texte {

namespace {

struct Destructeur {
  void operator()(FcConfig* c) const { FcConfigDestroy(c); }
  void operator()(FcPattern* p) const { FcPatternDestroy(p); }
  void operator()(FcObjectSet* o) const { FcObjectSetDestroy(o); }
  void operator()(FcFontSet* s) const { FcFontSetDestroy(s); }
};
using Configuration = std::unique_ptr<FcConfig, Destructeur>;
using Motif = std::unique_ptr<FcPattern, Destructeur>;
using Objets = std::unique_ptr<FcObjectSet, Destructeur>;
using Polices = std::unique_ptr<FcFontSet, Destructeur>;

const FcChar8* Octets(const std::string& texte) { return reinterpret_cast<const FcChar8*>(texte.c_str()); }

// The outline fonts of a family, of all families when it is empty. An exact list: unlike a match it never
// substitutes one family for another. Each call has a configuration of its own (a few milliseconds): fonts that
// were installed in the meantime are there, and nothing stays behind.
Polices Liste(const std::string& famille) {
  const Configuration configuration(FcInitLoadConfigAndFonts());
  const Motif motif(FcPatternCreate());
  const Objets objets(FcObjectSetBuild(FC_FAMILY, FC_FILE, FC_INDEX, FC_WEIGHT, FC_WIDTH, FC_SLANT, FC_VARIABLE,
                                       FC_FONTFORMAT, static_cast<char*>(nullptr)));
  if (!configuration || !motif || !objets) return nullptr;
  FcPatternAddBool(motif.get(), FC_OUTLINE, FcTrue);
  if (!famille.empty()) FcPatternAddString(motif.get(), FC_FAMILY, Octets(famille));
  return Polices(FcFontList(configuration.get(), motif.get(), objets.get()));
}

int Entier(const FcPattern* p, const char* objet, int defaut) {
  int v = defaut;
  return FcPatternGetInteger(p, objet, 0, &v) == FcResultMatch ? v : defaut;
}

std::string Chaine(const FcPattern* p, const char* objet, int rang = 0) {
  FcChar8* s = nullptr;
  if (FcPatternGetString(p, objet, rang, &s) != FcResultMatch || s == nullptr) return {};
  return reinterpret_cast<const char*>(s);
}

FacePolice Face(const FcPattern* p) {
  FacePolice face;
  face.fichier = Chaine(p, FC_FILE);
  face.indice = Entier(p, FC_INDEX, 0);
  face.graisse = Entier(p, FC_WEIGHT, FC_WEIGHT_REGULAR);
  face.largeur = Entier(p, FC_WIDTH, FC_WIDTH_NORMAL);
  face.italique = Entier(p, FC_SLANT, FC_SLANT_ROMAN) != FC_SLANT_ROMAN;
  FcBool variable = FcFalse;
  face.variable = FcPatternGetBool(p, FC_VARIABLE, 0, &variable) == FcResultMatch && variable != FcFalse;
  if (face.variable) face.indice &= 0xFFFF;
  const std::string format = Chaine(p, FC_FONTFORMAT);
  face.sfnt = format == "TrueType" || format == "CFF";
  return face;
}

}  // namespace

// Order of merit, first difference decides: one instance before a whole design space; upright when upright is
// asked for; normal width; the asked boldness; the asked slant; nearest weight (a face that has to be made bolder
// is the regular one); TrueType and OpenType before Type 1; the name of the file, so that the choice does not
// depend on the order in which fonts were installed. Boldness stands before slant because a bold face can be
// slanted without harm, while an italic made bolder loses its shape.
const FacePolice* ChoisitFace(const std::vector<FacePolice>& faces, bool italique, bool gras) {
  const auto merite = [&](const FacePolice& f) {
    const bool grasse = f.graisse >= GraisseGras;
    return std::tuple(f.variable, f.italique && !italique, std::abs(f.largeur - 100), grasse != gras,
                      f.italique != italique, std::abs(f.graisse - (gras && grasse ? 200 : 80)), !f.sfnt, f.fichier,
                      f.indice);
  };
  const FacePolice* meilleure = nullptr;
  for (const FacePolice& face : faces) {
    if (meilleure == nullptr || merite(face) < merite(*meilleure)) meilleure = &face;
  }
  return meilleure;
}

std::optional<FacePolice> TrouveFace(const std::string& police, bool italique, bool gras) {
  if (police.empty() || police.find('\0') != std::string::npos) return std::nullopt;
  if (police.find('/') != std::string::npos) {
    FacePolice face;
    face.fichier = police;
    return face;
  }
  const Polices polices = Liste(police);
  if (!polices) return std::nullopt;
  std::vector<FacePolice> faces;
  faces.reserve(base::Indice(polices->nfont));
  for (int i = 0; i < polices->nfont; ++i) faces.push_back(Face(polices->fonts[i]));
  const FacePolice* meilleure = ChoisitFace(faces, italique, gras);
  if (meilleure == nullptr) return std::nullopt;
  return *meilleure;
}

}  // namespace pathwerk::texte

namespace pathwerk {

std::vector<std::string> ListePolices() {
  try {
    const texte::Polices polices = texte::Liste("");
    if (!polices) return {};
    std::set<std::string> noms;
    for (int i = 0; i < polices->nfont; ++i) {
      for (int rang = 0;; ++rang) {
        std::string nom = texte::Chaine(polices->fonts[i], FC_FAMILY, rang);
        if (nom.empty()) break;
        noms.insert(std::move(nom));
      }
    }
    return {noms.begin(), noms.end()};
  } catch (const std::bad_alloc&) {
    return {};
  }
}

}  // namespace pathwerk
