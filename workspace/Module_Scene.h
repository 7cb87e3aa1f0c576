// What the picture shows, as a flat list of primitives in drawing order: document, view and options in, primitives
// out. A window, a writer of pictures or a test walks the list; nothing here draws.
//
// Screen units are twips, y downward. Points that fall into one pixel are merged, and what lies outside the picture
// is cut off a few pixels beyond its edge, so that the list stays small whatever the drawing; no pixel that the
// whole drawing would touch stays untouched.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "core/Document.h"
#include "core/Reglages.h"
#include "workspace/Module_Vue.h"

namespace ovelin {

struct PointEcran {
  float X = 0, Y = 0;
  bool operator==(const PointEcran&) const = default;
};

enum class Genre : std::uint8_t {
  Ligne,    // through its points, two or more
  Points,   // a round dot of diameter `mesure` at each
  Carres,   // a filled square of side `mesure` around each
  Disque,   // radius `mesure` around its one point; filled with `fond`, edged in `couleur`
  Fleches,  // a filled triangle for each three points: wing, tip, wing
  Texte,    // Textes[texte] at its one point
};

enum class StyleTrait : std::uint8_t { Plein = 0, Pointille = 2, TiretPointPoint = 4 };

// The order of the list is that of these names, down to the legend; the marks below it are asked for by name.
enum class Element : std::uint8_t {
  Etendue,   // rectangle of the extent
  Initial,   // the drawing, with its point marks
  Outil,     // moves in the air, tool path
  Attaches,  // attachment marks
  Departs,   // arrows of the starts
  Numeros,   // numbers of the paths
  Axes,      // of the drawing's origin
  Legende,
  Croix,          // TraceCroix
  PositionOutil,  // the running tool
};

enum class Ancre : std::uint8_t { Centre, HautGauche };

inline constexpr std::int32_t SansFond = -1;

struct Primitive {
  Genre genre = Genre::Ligne;
  Element element = Element::Initial;
  StyleTrait style = StyleTrait::Plein;
  Ancre ancre = Ancre::Centre;
  std::int32_t couleur = 0;  // as in the settings: red + 256 x green + 65536 x blue
  std::int32_t fond = SansFond;
  float mesure = 0;                       // twips
  std::uint32_t premier = 0, nombre = 0;  // in Scene::Points
  std::uint32_t texte = 0;
  bool operator==(const Primitive&) const = default;
};

struct Scene {
  std::vector<PointEcran> Points;
  std::vector<Primitive> Primitives;
  std::vector<std::string> Textes;

  void Vide();  // keeps the memory
  [[nodiscard]] std::span<const PointEcran> PointsDe(const Primitive& p) const {
    return std::span(Points).subspan(p.premier, p.nombre);
  }
};

// Width and height of a text, twips.
struct TailleTexte {
  float largeur = 0, hauteur = 0;
};

struct OptionsScene {
  bool numPoint = false;        // mnu_NumPoint: a mark at each point
  bool sequence = false;        // mnu_Sequence: numbers of the paths
  float pixel = TwipsParPixel;  // twips to a pixel of the device; 7.5 where two make a logical one
  // The colours of the settings.
  std::int32_t couleurNumero = 0, couleurSequence = 0, couleurInitial = 0;
  std::int32_t couleurSelectionne = 0, couleurDecalage = 0, couleurEncoche = 0;
  std::string legendeDessin, legendeDecalage;
  // The font of the picture; when empty, a common proportion is assumed.
  std::function<TailleTexte(const std::string&)> mesureTexte;
};
// With the colours of the settings in force and the texts of the legend in the user's language.
OptionsScene OptionsCourantes(bool numPoint, bool sequence);

// The whole picture but its background. Empty for a document without points. `scene` is replaced.
void ConstruitScene(const Document& document, const EtatVue& vue, const TailleImage& taille,
                    const OptionsScene& options, Scene& scene);

// Side of the point mark, twips: the square root of the picture's area, divided by 75, a whole number.
float CoteMarque(const TailleImage& taille);

// --- marks on top, added behind what the scene holds -------------------------------------------------------------

// A cross at a drawing point (mm).
void TraceCroix(const EtatVue& vue, const TailleImage& taille, const OptionsScene& options, const PointTrace& point,
                Scene& scene);

// The last position shown of the tool, mm; -999: none since the reset.
struct MemoireOutil {
  static constexpr float Aucune = -999;
  float X = Aucune, Y = Aucune;
  bool operator==(const MemoireOutil&) const = default;
};
// The mark of the tool at (x, y), mm: a circle, and a line from the position before unless there was none.
void MarqueOutil(const EtatVue& vue, const TailleImage& taille, const OptionsScene& options,
                 const MemoireOutil& precedente, float x, float y, Scene& scene);
// A position has come from the board. False when it is the last one: nothing is done. Otherwise `scene` is replaced
// by the mark and the memory takes the position.
bool Dessin_Position_Outil(const EtatVue& vue, const TailleImage& taille, const OptionsScene& options,
                           MemoireOutil& memoire, float x, float y, Scene& scene);

// --- preview of the dimension window -----------------------------------------------------------------------------

// Of more than 1000 points each k-th, k the rounded thousandth of their number.
std::vector<PointTrace> PointsApercu(const std::vector<PointTrace>& points);
// The points times the two ratios, fitted into the picture. `scene` is replaced.
void ConstruitApercu(const std::vector<PointTrace>& points, double rapportX, double rapportY,
                     const TailleImage& taille, std::int32_t couleur, Scene& scene);

}  // namespace ovelin
