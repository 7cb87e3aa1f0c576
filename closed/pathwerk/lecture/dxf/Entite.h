// One entity of DXF with its groups sorted into fields.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "base/Indices.h"
#include "closed/pathwerk/lecture/dxf/Espace.h"
#include "closed/pathwerk/lecture/dxf/Groupes.h"

namespace pathwerk::lecture::dxf {

enum class Genre : unsigned char {
  Ligne,
  Point,
  Cercle,
  Arc,
  Ellipse,
  Spline,
  PolyligneLegere,
  Polyligne,
  Solide,  // SOLID, TRACE
  Face3D,
  Hachure,
  Insertion,
  Rien,   // SEQEND, VIEWPORT: nothing to draw and nothing to tell
  Autre,  // left out and counted by its name
};

Genre GenreDe(std::string_view nom);

// Vertex of a polyline; `bulge` belongs to the segment that follows.
struct Sommet {
  Vec3 p;
  double bulge = 0;
};

// The colour of an entity or of a layer as its groups say it.
struct CouleurDite {
  static constexpr int DuBloc = 0;
  static constexpr int DuCalque = 256;
  int numero = DuCalque;     // 62: of the palette, or one of the two above
  std::optional<int> vraie;  // 420: 0xRRGGBB, before the number
  // What it says by itself.
  [[nodiscard]] std::optional<std::uint32_t> Propre() const {
    if (vraie) return static_cast<std::uint32_t>(*vraie) & 0xFFFFFFU;
    return CouleurDePalette(numero);
  }
};

struct Entite {
  Genre genre = Genre::Autre;
  std::string_view nom;
  long ligne = 0;                 // line of the name
  LecteurGroupes::Reprise debut;  // behind the name
  std::string_view calque = "0";
  CouleurDite couleur;
  bool papier = false;
  bool invisible = false;
  Vec3 extrusion{0, 0, 1};
  std::string_view bloc;           // 2
  std::array<Vec3, 4> p;           // 10 to 13
  unsigned donnes = 0;             // bit i: x of p[i] was given, bit 4 + i: its y
  std::array<double, 12> reels{};  // 40 to 51
  unsigned reelsDonnes = 0;        // bit i: 40 + i was given
  std::array<int, 10> entiers{};   // 70 to 79
  int nombreSommets = -1;          // 90
  std::vector<Sommet> sommets;
  bool dernierBulge = false;  // the last vertex has its group 42
  bool bulges = false;        // some vertex has
  std::vector<Vec3> controle;
  std::vector<Vec3> lissage;  // fit points
  std::vector<double> noeuds;
  std::vector<double> poids;

  [[nodiscard]] double Reel(int code, double defaut) const {
    const auto i = static_cast<unsigned>(code - 40);
    return (reelsDonnes >> i & 1U) != 0 ? reels[i] : defaut;
  }
  [[nodiscard]] int Entier(int code) const { return entiers[base::Indice(code - 70)]; }
  // Both coordinates of the first n points were given.
  [[nodiscard]] bool Points(unsigned n) const {
    const unsigned x = (1U << n) - 1;
    return (donnes & x) == x && (donnes >> 4 & x) == x;
  }
  // Empties the fields and keeps the room of the arrays.
  void Vide();
};

// How the reading of an entity ended.
enum class FinEntite : unsigned char {
  Suite,    // at the next group 0, which `g` holds
  Donnees,  // the data end behind a whole group
  Coupe,    // the data end inside a group
  Faux,     // no group structure
  Nombre,   // a number that isn't one, in `g`
};

// Reads the groups of the entity whose group 0 is in `g`, up to the next group 0.
FinEntite LitEntite(LecteurGroupes& lecteur, Groupe& g, Entite& e);
// Reads the VERTEX entities of a POLYLINE up to and with its SEQEND, into `e.sommets` (`frame`: those that only
// frame a smoothed curve, into `e.controle`).
FinEntite LitSommets(LecteurGroupes& lecteur, Groupe& g, Entite& e);

// Nothing that the entity needs is missing.
bool Complete(const Entite& e);
// The same for an entity at the end of cut-off data, where counts must agree as well.
bool CompleteALaFin(const Entite& e);

}  // namespace pathwerk::lecture::dxf
