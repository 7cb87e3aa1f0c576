// Lines of the drawing onto the screen with a level of detail. For whoever builds a scene.
#pragma once

#include <cstdint>
#include <vector>

#include "core/Types.h"
#include "image/Scene.h"
#include "image/Vue.h"

namespace ovelin {

// Follows a line point by point and keeps of it what a screen can show.
//
// The picture, widened by a few pixels, is a grid of cells of one pixel. Of the points between the entry into a
// cell and the way out of it only the first and the last are kept, so that every stretch from one cell to another
// is the original one and the set of cells touched is exactly that of the whole line:
//
//      +-------+-------+          +-------+-------+
//      | a.b c |       |          | a.    |       |      a entry, d last point in the cell, e entry of the next
//      |   . d-|-e     |    ->    |    \d-|-e     |
//      +-------+-------+          +-------+-------+
//
// A line that trembles across the border of two cells would enter and leave at every point; back in the cell
// before, the two count as one until the line leaves both (the union of two neighbours is convex, so nothing leaves
// it unseen). Stretches outside are cut at the edge by their parameter (Liang and Barsky, 1984). What stays in one
// cell as a whole is a dot, and a cell gets a dot of one kind once.
class Traceur {
 public:
  // `marge` (twips): how far beyond the edge of the picture a line still shows in it, half the width of a wide one.
  Traceur(Scene& scene, const EtatVue& vue, const TailleImage& taille, float pixel, float marge = 0);

  // A line begins. `sorte` 0 to 15 tells dots that may stand for each other.
  void Commence(Role role, unsigned sorte);
  // The same with lines `largeur` twips wide, dots of that diameter, of this share of the role's opacity.
  void Commence(Role role, unsigned sorte, float largeur, std::uint8_t force);
  // Points of the drawing, mm.
  void Suit(const PointTrace* debut, const PointTrace* fin);
  void Suit(const PointTrace& p) { Suit(&p, &p + 1); }
  void Finit();

  // A point of the drawing on the screen.
  [[nodiscard]] PointEcran Place(float x, float y) const;
  // Whether a mark at this place can show when it reaches `rayon` far.
  [[nodiscard]] bool Visible(const PointEcran& p, float rayon) const;
  // True the first time for this cell and kind; always false outside the grid.
  bool Nouvelle(const PointEcran& p, unsigned sorte);
  // Whether a mark is to be drawn: it shows, and its cell has none of that kind yet.
  bool Montre(const PointEcran& p, float rayon, unsigned sorte) {
    return Dehors(p.X, p.Y) == 0 ? Nouvelle(p, sorte) : Visible(p, rayon);
  }

  // Adds to the last primitive when it is of the same make, otherwise begins one.
  void AjouteMarque(const Primitive& modele, std::span<const PointEcran> points);

 private:
  struct Cellule {
    std::int32_t x = -1, y = -1;
    bool operator==(const Cellule&) const = default;
  };

  [[nodiscard]] unsigned Dehors(float x, float y) const {
    return static_cast<unsigned>(!(x >= gauche_)) | static_cast<unsigned>(!(x <= droite_)) << 1U |
           static_cast<unsigned>(!(y >= haut_)) << 2U | static_cast<unsigned>(!(y <= bas_)) << 3U;
  }
  [[nodiscard]] Cellule CelluleDe(float x, float y) const;
  [[nodiscard]] bool Coupe(PointEcran& a, PointEcran& b) const;
  void Borne(const Cellule& a, const Cellule& b);
  void SansCellule();
  void Ouvre(float x, float y);
  void Emet(float x, float y);
  void Passe(float x, float y);  // to another cell of the grid
  void Ferme();
  void Avance(float x, float y);

  Scene& scene_;
  EtatVue vue_;
  float hauteur_ = 0, pixel_ = 0;
  float gauche_ = 0, droite_ = 0, haut_ = 0, bas_ = 0;  // edge of the grid
  std::int32_t colonnes_ = 0, lignes_ = 0;
  std::vector<std::uint16_t> taches_;  // a bit for each kind of dot; made when the first comes

  Primitive modele_;
  unsigned sorte_ = 0;
  bool debut_ = true;     // no point of the line yet
  bool ouverte_ = false;  // points of it stand in the scene
  bool attente_ = false;  // dernier_ is not among them
  bool paire_ = false;    // the current cell and the one before count as one
  PointEcran dernier_;    // last point followed
  unsigned dernierDehors_ = 0;
  Cellule cellule_, avant_;
  float x0_ = 0, x1_ = 0, y0_ = 0, y1_ = 0;  // of the current cell or pair; empty outside
};

}  // namespace ovelin
