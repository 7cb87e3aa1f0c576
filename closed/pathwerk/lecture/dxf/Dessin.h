// Draws the entities of a DXF file as paths.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "closed/pathwerk/lecture/Lecture.h"
#include "closed/pathwerk/lecture/dxf/Courbes.h"
#include "closed/pathwerk/lecture/dxf/Entite.h"
#include "closed/pathwerk/lecture/dxf/Sommaire.h"
#include "closed/pathwerk/lecture/dxf/Spline.h"

namespace pathwerk::lecture::dxf {

// Where a run of entities is drawn: the map to the drawing (mm), and what a block takes over from its insertion.
struct Cadre {
  Affine m;
  std::string_view calque;               // layer that entities on "0" take; empty outside blocks
  std::optional<std::uint32_t> couleur;  // that entities take whose colour is the block's
  int profondeur = 0;
};

inline constexpr std::size_t GenresMax = 100;  // kinds told apart in the report

// No two points differ.
bool SansEtendue(const std::vector<Vec2>& points);

// What the drawers of a file of that many bytes may take.
struct Limites {
  explicit Limites(std::size_t octets);
  Caisse memoire;    // bytes
  Caisse relecture;  // bytes of blocks that may be read again
};

// Paths that come from hatches, rising, each with the number of its hatch.
struct TraitDeHachure {
  std::size_t trait;
  long hachure;
};

class Dessinateur {
 public:
  Dessinateur(LecteurGroupes& lecteur, const Sommaire& sommaire, const OptionsLecture& options, Lecture& lecture,
              Limites& limites);

  // Everything: all sections of entities, then the boundaries of hatches.
  void Dessine();

  // Or piece by piece, each by a drawer of its own: a section, false when the drawing is refused; a stretch of one,
  // false for anything that leaves a doubt that its entities are those of the whole section.
  bool DessineSection(const SectionEntites& section);
  bool DessineTranche(const Tranche& tranche);
  [[nodiscard]] const std::vector<TraitDeHachure>& TraitsDeHachure() const { return traitsDeHachure_; }
  [[nodiscard]] long Hachures() const { return hachures_; }
  // At the end the boundaries of hatches of all pieces, by their places in the drawing. False when it is refused.
  bool Acheve(std::vector<TraitDeHachure>&& traits, long hachures);

 private:
  [[nodiscard]] Cadre CadreDuDessin() const;
  // A run of entities from the reader's place to its end. False once the drawing is refused.
  bool Suite(const Cadre& cadre);
  bool UneEntite(const Cadre& cadre, Groupe& g);
  bool Termine(FinEntite fin, const Groupe& g);
  bool Cachee(const Cadre& cadre);
  // Layer and colour of the entity, once it is known that it is drawn.
  void Situe(const Cadre& cadre);
  void Trace(const Cadre& cadre);
  void Avance();

  // Single entities (the one in e_).
  void Ligne(const Affine& m);
  void Point(const Affine& m);
  void Arc(const Affine& m);
  void Ellipse(const Affine& m);
  void Polyligne(const Affine& m);
  void PolyligneLissee(const Affine& m);
  void CourbeSpline(const Affine& m);
  void Solide(const Affine& m);
  void Face(const Affine& m);
  bool Insertion(const Cadre& cadre);
  void Hachure(const Affine& m);

  // Pieces shared by them.
  bool Lisse(Trait& trait, const std::vector<Sommet>& sommets, bool ferme, const Affine& m);
  void Conique(Vec3 centre, Vec3 u, Vec3 v, double debut, double balayage, const Affine& m);
  void TraceSpline(const Spline& s, bool fermee, const Affine& m);
  // Takes a finished path over; false when it has no extent and was counted as left out.
  bool Pose(Trait&& trait);
  void Ignore(std::string_view genre);
  bool Refuse(Erreur numero, long ligne, std::string_view detail);
  bool Memoire(long ligne);

  LecteurGroupes& lecteur_;
  const Sommaire& sommaire_;
  const OptionsLecture& options_;
  Lecture& lecture_;
  double fleche_;
  Budget budget_;
  Budget relecture_;
  std::size_t jalon_ = 0;  // place in the file of the next call of Avancement
  Entite e_;
  std::string_view calque_;               // its layer, as the table of layers spells it
  std::optional<std::uint32_t> couleur_;  // its colour
  std::vector<const Bloc*> ouverts_;      // being inserted: another insertion inside them would never end
  std::vector<TraitDeHachure> traitsDeHachure_;
  long hachures_ = 0;

  friend class LecteurHachure;
  // Boundaries that another entity draws are taken out again.
  void RetireBordsCouverts();
};

}  // namespace pathwerk::lecture::dxf
