// What decides how an element looks, as far as it decides what is milled.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace pathwerk::lecture::svg {

enum class Propriete : std::uint8_t {
  Display,
  Visibility,
  Opacity,
  Fill,
  FillOpacity,
  Stroke,
  StrokeOpacity,
  StrokeWidth,
  StrokeLinecap,
  ClipPath,
  Mask,
  Filter,
  Marker,
  MarkerStart,
  MarkerMid,
  MarkerEnd,
  Font,
  FontFamily,
  FontSize,
  FontWeight,
  FontStyle,
  TextAnchor,
  LetterSpacing,
  Nombre
};

// By its name, the same in attributes and style sheets.
std::optional<Propriete> ProprieteDe(std::string_view nom);

// What is said of one element. A later word replaces an earlier one, unless that one was important and the later is
// not. The texts belong to the document.
class Dits {
 public:
  void Pose(Propriete p, std::string_view valeur, bool important = false);
  // "" when nothing is said, or that it is as outside.
  [[nodiscard]] std::string_view De(Propriete p) const { return dits_[static_cast<std::size_t>(p)].valeur; }
  // "name: value; ..." one by one.
  void PoseListe(std::string_view declarations);

 private:
  struct Dit {
    std::string_view valeur;
    bool important = false;
  };
  std::array<Dit, static_cast<std::size_t>(Propriete::Nombre)> dits_;
};

// What an element hands on to those inside it.
struct Apparence {
  bool fond = true;    // its inside is painted
  bool trait = false;  // its line is painted
  bool fondOpaque = true, traitOpaque = true;
  std::optional<std::uint32_t> couleurFond = 0, couleurTrait;  // 0xRRGGBB, where they have one
  double largeurTrait = 1;
  bool boutRond = false;  // the ends of lines reach out, so that a line of no length is a dot
  bool visible = true;
  bool marques = false;  // arrows and the like at its corners
  std::string familles = "sans-serif";
  double corps = 16;  // size of the font, user units
  bool gras = false, italique = false;
  enum class Ancre : std::uint8_t { Debut, Milieu, Fin } ancre = Ancre::Debut;
  double espace = 0;  // between letters, user units

  // Of the line, or of the inside where no line is seen.
  [[nodiscard]] std::optional<std::uint32_t> Couleur() const { return TraitVisible() ? couleurTrait : couleurFond; }
  [[nodiscard]] bool FondVisible() const { return fond && fondOpaque; }
  [[nodiscard]] bool TraitVisible() const { return trait && traitOpaque && largeurTrait > 0; }
};

// What is handed on, with what is said here.
Apparence Herite(const Apparence& dehors, const Dits& dits);

// What holds for the element as a whole and is not handed on.
struct Ensemble {
  bool montre = true;  // false: neither it nor anything in it is there
  bool decoupe = false, masque = false, filtre = false;
};
Ensemble EnsembleDe(const Dits& dits);

}  // namespace pathwerk::lecture::svg
