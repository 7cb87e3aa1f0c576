// The style sheets of a document, as far as selectors by type, class, identity and nesting go.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "closed/pathwerk/lecture/svg/Apparence.h"

namespace pathwerk::lecture::svg {

class ReglesCss {
 public:
  // Takes the rules of one sheet; the text is copied.
  void Ajoute(std::string_view feuille);
  // What the rules say of an element. `travail` grows by what it took; beyond `travailMax` it ends early.
  void Applique(pugi::xml_node element, Dits& dits, std::size_t& travail, std::size_t travailMax) const;
  [[nodiscard]] bool Vide() const { return selecteurs_.empty(); }
  // Selectors by what isn't known here, and sheets that lie elsewhere.
  [[nodiscard]] long Ecartes() const { return ecartes_; }

 private:
  // "type#id.class" of one element; an empty type is any.
  struct Simple {
    std::string_view type;
    std::string_view identite;
    std::vector<std::string_view> classes;
    bool enfant = false;  // stands directly in the one before it, otherwise anywhere inside
  };
  struct Selecteur {
    std::vector<Simple> suite;  // outermost first
    std::uint32_t poids = 0;
    std::string_view declarations;
  };

  void LitFeuille(std::string_view texte, int profondeur);
  void LitRegle(std::string_view selecteurs, std::string_view declarations);
  static bool LitSelecteur(std::string_view texte, Selecteur& selecteur);
  static bool LitSimple(std::string_view texte, Simple& simple);
  void Range(Selecteur&& selecteur);
  static bool Convient(const Simple& simple, pugi::xml_node element);
  static bool Convient(const Selecteur& selecteur, pugi::xml_node element, std::size_t& travail);

  std::deque<std::string> textes_;
  std::vector<Selecteur> selecteurs_;
  // By what the innermost element must have: "#id", ".class", "type", "*".
  std::unordered_map<std::string, std::vector<std::size_t>> parClef_;
  long ecartes_ = 0;
};

// The name of an element without the prefix of its namespace.
std::string_view NomLocal(pugi::xml_node element);

}  // namespace pathwerk::lecture::svg
