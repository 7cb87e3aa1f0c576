// What must be known of a DXF file before its entities are drawn: units, layers, blocks, where the entities stand.
#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "closed/pathwerk/lecture/dxf/Espace.h"
#include "closed/pathwerk/lecture/dxf/Groupes.h"
#include "closed/pathwerk/lecture/dxf/Tranches.h"

namespace pathwerk::lecture::dxf {

// Names of layers and blocks don't tell capitals from small letters.
struct HacheNom {
  using is_transparent = void;
  std::size_t operator()(std::string_view nom) const;
};
struct MemeNom {
  using is_transparent = void;
  bool operator()(std::string_view a, std::string_view b) const;
};
template <class T>
using ParNom = std::unordered_map<std::string, T, HacheNom, MemeNom>;

struct Calque {
  bool gele = false;                     // frozen: nothing on it is drawn, and no block inserted on it
  bool eteint = false;                   // off: what lies on it isn't drawn
  std::optional<std::uint32_t> couleur;  // 0xRRGGBB
};

// A block's entities stay in the file; they are read again for each insertion.
struct Bloc {
  LecteurGroupes::Reprise debut;  // before the first entity's group 0
  std::size_t taille = 0;         // bytes of its entities
  Vec3 base;
};

struct SectionEntites {
  LecteurGroupes::Reprise debut;
  std::vector<Tranche> tranches;  // empty where it isn't cut
};

struct Sommaire {
  double unite = 1;  // mm to a drawing unit
  bool propre = false;
  ParNom<Calque> calques;
  ParNom<Bloc> blocs;
  std::vector<SectionEntites> entites;
  long papier = 0;  // entities of layouts kept among the blocks
  bool tronque = false;
  // Set when the file has no group structure: where and what.
  bool faux = false;
  long ligne = 0;
  std::string detail;

  // Some section is cut.
  [[nodiscard]] bool Coupe() const {
    return std::ranges::any_of(entites, [](const SectionEntites& s) { return !s.tranches.empty(); });
  }
};

// Reads the whole file once, but for the sections that are cut: their groups are taken to be whole, which who draws
// them finds out.
Sommaire LitSommaire(LecteurGroupes& lecteur, const Decoupe& decoupe = {});

// True for the names that end a run of entities: of a block, of a section, of the file.
bool FinDeSuite(std::string_view nom);

// mm to a unit by the header's variables; -1 stands for a variable that isn't there.
double UniteEnMm(int insunits, int measurement, int lunits);

}  // namespace pathwerk::lecture::dxf
