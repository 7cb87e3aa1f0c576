// The fields of a machine table by name (core/ChampsMachine.def): keys, formats, twins, defaults.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace ovelin {

// Kinds of controls that hold a field. What is stored: the text, the list index, 0 or 1, 0 or 1, the position.
enum class FamilleChamp { TB_SAV, Combo_SAV, CB_SAV, Option_SAV, Sld_SAV };
inline constexpr std::array<std::string_view, 5> NomsFamilles{"TB_SAV", "Combo_SAV", "CB_SAV", "Option_SAV",
                                                              "Sld_SAV"};

// Degrees per step follow steps per turn with two decimals; steps follow degrees with all of theirs.
enum class SorteJumeau { Aucun, Degres, Pas };
struct JumeauChamp {
  SorteJumeau sorte = SorteJumeau::Aucun;
  int index = -1;  // of the field that follows, in the same family
};

// A field. Only the table makes one, so a field without a row does not compile.
class ChampMachine {
 public:
  FamilleChamp famille;
  int index;
  bool visible;
  const char* format;  // nullptr: none
  JumeauChamp jumeau;
  const char* livre;  // nullptr: not in the delivered table
  const char* defaut;

  [[nodiscard]] constexpr std::string_view Famille() const {
    return NomsFamilles[static_cast<std::size_t>(famille)];
  }
  [[nodiscard]] std::string Cle() const { return std::string(Famille()) + "_" + std::to_string(index); }

 private:
  friend struct ChampsMachine;
  consteval ChampMachine(FamilleChamp f, int i, bool v, const char* motif, JumeauChamp j, const char* l,
                         const char* d)
      : famille(f), index(i), visible(v), format(motif), jumeau(j), livre(l), defaut(d) {}
};

// A field as one reader takes it: with its own value for a missing key.
struct LectureChamp {
  ChampMachine champ;
  const char* defaut;

  constexpr LectureChamp(const ChampMachine& c, const char* d) : champ(c), defaut(d) {}
  // NOLINTNEXTLINE(google-explicit-constructor): a field alone is read with the default of its row
  constexpr LectureChamp(const ChampMachine& c) : champ(c), defaut(c.defaut) {}
  [[nodiscard]] double Nombre() const;  // the value for a missing key, 0 for a text
};

namespace champ {
inline constexpr bool Visible = true, Cache = false;
inline constexpr JumeauChamp SansJumeau{};
constexpr JumeauChamp EnDegres(int index) { return {SorteJumeau::Degres, index}; }
constexpr JumeauChamp EnPas(int index) { return {SorteJumeau::Pas, index}; }
inline constexpr const char* Demande = "?";  // delivered as the question of the first start is answered
}  // namespace champ

// ChampsMachine::CourseX and so on; `Tous` in the order of the window.
struct ChampsMachine {
#define CHAMP(nom, famille, index, fenetre, format, jumeau, livre, defaut)                \
  static constexpr ChampMachine nom{FamilleChamp::famille, index, champ::fenetre, format, \
                                    champ::jumeau,         livre, defaut};
#define CHAMP_GLOBAL(nom, famille, index, fenetre, format, jumeau, livre, defaut, membre) \
  CHAMP(nom, famille, index, fenetre, format, jumeau, livre, defaut)
#define CHAMP_SUIVI(nom, famille, index, fenetre, format, jumeau, livre, defaut, membre) \
  CHAMP(nom, famille, index, fenetre, format, jumeau, livre, defaut)
#define LECTEUR(nom, lu, defaut) static constexpr LectureChamp nom{lu, defaut};
#include "core/ChampsMachine.def"
#undef LECTEUR
#undef CHAMP

#define CHAMP(nom, famille, index, fenetre, format, jumeau, livre, defaut) nom,
#define LECTEUR(nom, lu, defaut)
  static constexpr auto Tous = std::to_array<ChampMachine>({
#include "core/ChampsMachine.def"
  });
#undef LECTEUR
#undef CHAMP_SUIVI
#undef CHAMP_GLOBAL
#undef CHAMP
};

// Keys of a table that are no fields: its own name, and the interface as a number.
inline constexpr const char* CleNomTable = "COMBO_TABLE";
inline constexpr const char* CleOptionLPT = "OptionLPT";

// A field by its control, nullptr when there is none.
const ChampMachine* ChercheChamp(FamilleChamp famille, int index);

// "table_" + name.
std::string SectionTable(std::string_view nom);

}  // namespace ovelin
