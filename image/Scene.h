// A picture as a flat list of primitives in drawing order. Each has a role; how a role looks stands in Palette.h.
//
// Places and sizes are twips, 15 to a logical pixel, y downward. A painter walks the list in its order; nothing
// here draws.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

namespace ovelin {

struct PointEcran {
  float X = 0, Y = 0;
  bool operator==(const PointEcran&) const = default;
};

enum class Genre : std::uint8_t {
  Ligne,    // through its points, two or more; as wide as its role says, or `mesure` wide, with round ends
  Aire,     // filled, its edge through its points and back; a stretch walked both ways leads to a hole (even-odd)
  Points,   // a round dot of diameter `mesure` at each
  Carres,   // a filled square of side `mesure` around each
  Disque,   // radius `mesure` around its one point, edged, filled when its role has a fill
  Fleches,  // a filled triangle for each three points: wing, tip, wing
  Texte,    // Textes[texte] at its one point
};

// What a primitive stands for. Rows of Palette.cpp say how it looks.
enum class Role : std::uint8_t {
  Etendue,    // rectangle of the extent
  Dessin,     // path of the drawing, with its point marks
  Selection,  // the same, selected
  Air,        // move in the air
  Trajet,     // tool path
  TrajetNu,   // stretch of the tool path behind an attachment point without a notch
  Encoche,    // notch in the tool path
  Attache,    // attachment mark
  Depart,     // arrow of a start
  Numero,     // number of a path and its disc
  NumeroSelection,
  Axes,  // of the drawing's origin
  LegendeDessin,
  LegendeTrajet,
  Echelle,  // bar of a round length
  Croix,    // TraceCroix
  Outil,    // the running tool
  Rapide,   // moves of a G-code program
  Coupe,
  Plongee,
  Boite,    // wire box around it
  Feuille,  // travel of the machine ...
  BordFeuille,
  Grille,
  ZeroMachine,
  Saignee,         // what the tool takes away along a path ...
  Poche,           // ... and in a pocket
  TropEtroit,      // contour that the tool doesn't fit into
  Hors,            // what lies beyond the travel
  Halo,            // around the selection
  CadreSelection,  // its box, with its size
  Survol,          // path under the pointer
  Fantome,         // outline of what is being dragged, and the figures of it
  Poignee,         // grip of the selection's box
  PointDessin,     // hollow mark of a point
  PointSelection,
  FondMesure,  // paper under a figure that lies over the picture
  Rampe,       // way along which the tool comes down into a path
};
inline constexpr std::size_t NombreRoles = 38;

// Strokes of such roles lie over each other and are still one surface: where two meet, nothing gets darker, and the
// later one counts.
enum class Nappe : std::uint8_t { Aucune, Coupe, Hors, Halo, Survol };
Nappe NappeDe(Role role);

enum class Ancre : std::uint8_t { Centre, HautGauche };

struct Primitive {
  Genre genre = Genre::Ligne;
  Role role = Role::Dessin;
  Ancre ancre = Ancre::Centre;
  std::uint8_t force = 255;               // share of the opacity that its role has, of 255
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

  // A primitive of this make behind the others, through or at these places.
  void Ajoute(Primitive modele, std::span<const PointEcran> places);
  void AjouteTexte(Role role, const PointEcran& place, Ancre ancre, std::string texte);
  void AjouteDisque(Role role, const PointEcran& centre, float rayon);
  void AjouteSegment(Role role, const PointEcran& a, const PointEcran& b);
  void AjouteAire(Role role, std::span<const PointEcran> bord);
};

// Width and height of a text, twips.
struct TailleTexte {
  float largeur = 0, hauteur = 0;
};
using MesureTexte = std::function<TailleTexte(const std::string&)>;

// By this font; without one a common proportion is assumed.
TailleTexte Mesure(const MesureTexte& police, const std::string& texte);

// Wing, tip, wing: an arrow of this length (twips) whose tip lies at `pointe`, along (dx, dy) of length 1.
void Fleche(const PointEcran& pointe, float dx, float dy, float longueur, PointEcran (&coins)[3]);

}  // namespace ovelin
