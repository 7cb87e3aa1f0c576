// Outlines of a line: HarfBuzz places the glyphs, FreeType gives their contours.
#include "closed/pathwerk/texte/Ligne.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H
#include <hb-ft.h>
#include <hb.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <new>
#include <utility>

#include "base/Indices.h"
#include "base/Texte.h"
#include "base/Vecteur.h"
#include "closed/pathwerk/commun/Courbes.h"

namespace pathwerk::texte {

namespace {

// Missing styles are made as font engines use to: slanted by 12 degrees, strokes wider by 1/24 em.
constexpr double PenteItalique = 0.2126;
constexpr double PartGras = 24.0;

struct Destructeur {
  void operator()(FT_Library b) const { FT_Done_FreeType(b); }
  void operator()(FT_Face f) const { FT_Done_Face(f); }
  void operator()(hb_font_t* f) const { hb_font_destroy(f); }
  void operator()(hb_buffer_t* t) const { hb_buffer_destroy(t); }
};
using Bibliotheque = std::unique_ptr<std::remove_pointer_t<FT_Library>, Destructeur>;
using Face = std::unique_ptr<std::remove_pointer_t<FT_Face>, Destructeur>;
using PoliceHb = std::unique_ptr<hb_font_t, Destructeur>;
using TamponHb = std::unique_ptr<hb_buffer_t, Destructeur>;

using Contour = std::vector<Vec2>;  // mm, closed without a second copy of its first point

// How the glyphs of a line are drawn. The face is set to one pixel per font unit, so that FreeType's and
// HarfBuzz's 26.6 numbers are font units with six more bits and nothing is lost to rounding.
struct Style {
  FT_Face face = nullptr;
  double hauteur = 0;     // mm an em
  double fleche = 0;      // mm
  double mm = 0;          // mm per 1/64 of a font unit
  bool pencher = false;   // the face isn't italic, the text is
  bool grossir = false;   // the face isn't bold, the text is
  FT_Pos Trait() const {  // by how much strokes grow, 1/64 unit
    return grossir ? static_cast<FT_Pos>(std::lround(face->units_per_EM * 64.0 / PartGras)) : 0;
  }
};

// A glyph and where its origin lies.
struct GlyphePose {
  FT_UInt glyphe = 0;
  Vec2 origine;  // mm
};

// Control characters have no outline and no advance that fonts agree on: they count as blanks.
std::string SansCommandes(const std::string& texte) {
  std::string t = texte;
  for (char& c : t) {
    if (base::Octet(c) < 0x20 || c == 0x7F) c = ' ';
  }
  return t;
}

// Shapes the line: accents put together, pairs kerned, ligatures set unless letters are spaced (a ligature can't be
// spaced inside). A distance is added where one letter ends and the next begins, so a letter made of several glyphs
// stays whole. False when memory runs out.
bool Dispose(const Style& style, const std::string& texte, std::int32_t espace, std::vector<GlyphePose>& poses,
             double& avanceLigne) {
  const PoliceHb police(hb_ft_font_create_referenced(style.face));
  hb_ft_font_set_load_flags(police.get(), FT_LOAD_NO_HINTING | FT_LOAD_NO_BITMAP);
  const TamponHb tampon(hb_buffer_create());
  const std::string ligne = SansCommandes(texte);
  if (ligne.size() > base::Indice(std::numeric_limits<int>::max() / 2)) return false;
  hb_buffer_add_utf8(tampon.get(), ligne.data(), base::Compte(ligne.size()), 0, base::Compte(ligne.size()));
  hb_buffer_guess_segment_properties(tampon.get());
  const hb_tag_t marques[] = {HB_TAG('l', 'i', 'g', 'a'), HB_TAG('c', 'l', 'i', 'g')};
  std::vector<hb_feature_t> options;
  if (espace != 0) {
    for (const hb_tag_t m : marques) options.push_back({m, 0, HB_FEATURE_GLOBAL_START, HB_FEATURE_GLOBAL_END});
  }
  hb_shape(police.get(), tampon.get(), options.data(), static_cast<unsigned>(options.size()));
  if (!hb_buffer_allocation_successful(tampon.get())) return false;

  unsigned nombre = 0;
  const hb_glyph_info_t* infos = hb_buffer_get_glyph_infos(tampon.get(), &nombre);
  const hb_glyph_position_t* positions = hb_buffer_get_glyph_positions(tampon.get(), &nombre);
  const double ecart = espace / 1000.0 * style.hauteur;
  Vec2 plume;
  for (unsigned i = 0; i < nombre; ++i) {
    if (i > 0 && infos[i].cluster != infos[i - 1].cluster) plume.x += ecart;
    poses.push_back({infos[i].codepoint,
                     {plume.x + positions[i].x_offset * style.mm, plume.y + positions[i].y_offset * style.mm}});
    const auto avance = static_cast<double>(positions[i].x_advance);
    // A wider stroke needs a wider place; a mark that takes no place keeps none.
    plume.x += (avance + (avance > 0 ? static_cast<double>(style.Trait()) : 0.0)) * style.mm;
    plume.y += positions[i].y_advance * style.mm;
  }
  avanceLigne = plume.x;
  return true;
}

// Receives an outline piece by piece. FreeType is C: nothing may be thrown through it.
struct Collecte {
  double mm = 0;
  double fleche = 0;
  std::vector<Contour> contours;
  Vec2 Point(const FT_Vector* p) const { return {static_cast<double>(p->x) * mm, static_cast<double>(p->y) * mm}; }
};

template <class Action>
int Protege(void* donnees, Action action) {
  try {
    action(*static_cast<Collecte*>(donnees));
    return 0;
  } catch (const std::bad_alloc&) {
    return 1;
  }
}

int Debut(const FT_Vector* p, void* d) {
  return Protege(d, [&](Collecte& c) { c.contours.push_back({c.Point(p)}); });
}
int Droite(const FT_Vector* p, void* d) {
  return Protege(d, [&](Collecte& c) { c.contours.back().push_back(c.Point(p)); });
}
// A quadratic curve is the cubic whose handles lie two thirds of the way to the quadratic's one.
int Quadratique(const FT_Vector* q, const FT_Vector* p, void* d) {
  return Protege(d, [&](Collecte& c) {
    Contour& contour = c.contours.back();
    const Vec2 a = contour.back();
    const Vec2 m = c.Point(q);
    const Vec2 b = c.Point(p);
    const Vec2 p1{a.x + (m.x - a.x) * 2 / 3, a.y + (m.y - a.y) * 2 / 3};
    const Vec2 p2{b.x + (m.x - b.x) * 2 / 3, b.y + (m.y - b.y) * 2 / 3};
    AjouteBezier(contour, p1, p2, b, c.fleche);
  });
}
int Cubique(const FT_Vector* p1, const FT_Vector* p2, const FT_Vector* p, void* d) {
  return Protege(
      d, [&](Collecte& c) { AjouteBezier(c.contours.back(), c.Point(p1), c.Point(p2), c.Point(p), c.fleche); });
}

// Of a contour, whichever its sense. Summed from the origin: the order of two dots that are equally large hangs on
// the last digit.
double Surface(const Contour& c) {
  double a = 0;
  for (std::size_t i = 0; i < c.size(); ++i) a += base::Vectoriel(c[i], c[base::Suivant(i, c.size())]);
  return std::fabs(a) / 2;
}

// Contours of one glyph around its origin: the letter's body to the right of the direction of travel (TrueType's
// sense, outlines clockwise), so that the default side of the tool lies outside letters of every font format; the
// small ones first, so that a counter is cut while the letter still holds. A glyph that can't be loaded, or is only
// a picture, has none. False when memory runs out.
bool ContoursGlyphe(const Style& style, FT_UInt glyphe, std::vector<Contour>& contours) {
  contours.clear();
  if (FT_Load_Glyph(style.face, glyphe, FT_LOAD_NO_HINTING | FT_LOAD_NO_BITMAP) != 0) return true;
  if (style.face->glyph->format != FT_GLYPH_FORMAT_OUTLINE) return true;
  FT_Outline& trace = style.face->glyph->outline;
  if (style.grossir) FT_Outline_Embolden(&trace, style.Trait());
  if (style.pencher) {
    const FT_Matrix matrice{0x10000, static_cast<FT_Fixed>(std::lround(PenteItalique * 65536)), 0, 0x10000};
    FT_Outline_Transform(&trace, &matrice);
  }
  const bool retourner = FT_Outline_Get_Orientation(&trace) == FT_ORIENTATION_POSTSCRIPT;
  FT_Outline_Funcs fonctions{Debut, Droite, Quadratique, Cubique, 0, 0};
  Collecte collecte;
  collecte.mm = style.mm;
  collecte.fleche = style.fleche;
  if (FT_Outline_Decompose(&trace, &fonctions, &collecte) != 0) return false;
  contours = std::move(collecte.contours);
  if (retourner) {
    for (Contour& c : contours) std::reverse(c.begin(), c.end());
  }
  std::stable_sort(contours.begin(), contours.end(),
                   [](const Contour& a, const Contour& b) { return Surface(a) < Surface(b); });
  return true;
}

// All glyphs at their places.
bool Contours(const Style& style, const std::string& texte, std::int32_t espace, LigneTexte& ligne) {
  std::vector<GlyphePose> poses;
  if (!Dispose(style, texte, espace, poses, ligne.avance)) return false;
  std::vector<Contour> contours;
  for (const GlyphePose& pose : poses) {
    if (pose.glyphe == 0) ++ligne.absents;
    if (!ContoursGlyphe(style, pose.glyphe, contours)) return false;
    for (Contour& contour : contours) {
      for (Vec2& p : contour) p = {p.x + pose.origine.x, p.y + pose.origine.y};
      ligne.contours.push_back(std::move(contour));
    }
  }
  return true;
}

}  // namespace

Erreur TraceLigne(const FacePolice& choix, const std::string& texte, const StyleLigne& voulu, LigneTexte& ligne) {
  FT_Library brute = nullptr;
  if (FT_Init_FreeType(&brute) != 0) return Erreur::Memoire;
  const Bibliotheque bibliotheque(brute);
  FT_Face nue = nullptr;
  if (FT_New_Face(brute, choix.fichier.c_str(), choix.indice, &nue) != 0) return Erreur::PoliceFichier;
  const Face face(nue);
  if (!FT_IS_SCALABLE(nue) || nue->units_per_EM == 0) return Erreur::PoliceFichier;
  if (FT_Set_Pixel_Sizes(nue, nue->units_per_EM, nue->units_per_EM) != 0) return Erreur::PoliceFichier;
  Style style;
  style.face = nue;
  style.hauteur = voulu.hauteur;
  style.fleche = voulu.fleche;
  style.mm = voulu.hauteur / (nue->units_per_EM * 64.0);
  style.pencher = voulu.italique && !choix.italique && (nue->style_flags & FT_STYLE_FLAG_ITALIC) == 0;
  style.grossir = voulu.gras && choix.graisse < GraisseGras && (nue->style_flags & FT_STYLE_FLAG_BOLD) == 0;
  return Contours(style, texte, voulu.espace, ligne) ? Erreur::Aucune : Erreur::Memoire;
}

}  // namespace pathwerk::texte
