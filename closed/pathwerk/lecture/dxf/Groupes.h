// The groups of a DXF file, text or binary: pairs of a code and a value.
#pragma once

#include <cstddef>
#include <string_view>

namespace pathwerk::lecture::dxf {

// One group. In a text file `texte` is the value without blanks around it; in a binary file it is set for strings
// alone and `nombre` holds the numbers.
struct Groupe {
  int code = 0;
  std::string_view texte;
  double nombre = 0;
  bool binaire = false;
  long ligne = 0;  // line of the value, from 1; 0 in a binary file
};

enum class Etat : unsigned char {
  Groupe,  // a group was read
  Fin,     // the data end between two groups
  Coupe,   // the data end inside a group
  Faux,    // no group structure here
};

// Value as a number. False when the text isn't one. Values beyond the range of a double become infinite or 0.
bool LitReel(const Groupe& g, double& valeur);
// Value as an integer, held within +-2^31; a fraction is cut.
bool LitEntier(const Groupe& g, int& valeur);

// Reads group by group. Lines end with LF, CR or CRLF, in any mixture; blanks around codes and values don't
// count, nor do empty lines before a code, nor comments (999). A byte-order mark is skipped; Ctrl-Z ends the data.
class LecteurGroupes {
 public:
  // Where to go on reading.
  struct Reprise {
    std::size_t position = 0;
    long ligne = 0;
    bool operator==(const Reprise&) const = default;
  };

  explicit LecteurGroupes(std::string_view data);

  Etat Suivant(Groupe& g);
  // The same, comments included.
  Etat SuivantBrut(Groupe& g) { return binaire_ ? SuivantBinaire(g) : SuivantTexte(g); }
  [[nodiscard]] Reprise Ici() const { return {position_, ligne_}; }
  void Va(Reprise r) {
    position_ = r.position;
    ligne_ = r.ligne;
  }
  [[nodiscard]] bool Binaire() const { return binaire_; }
  [[nodiscard]] std::size_t Taille() const { return data_.size(); }
  [[nodiscard]] std::string_view Donnees() const { return data_; }
  // Line and text of what was met at `Etat::Faux`.
  [[nodiscard]] long LigneFausse() const { return binaire_ ? 0 : ligne_; }
  [[nodiscard]] std::string_view TexteFaux() const { return faux_; }

 private:
  Etat SuivantTexte(Groupe& g);
  bool SuivantSimple(Groupe& g);
  Etat SuivantBinaire(Groupe& g);
  bool Ligne(std::string_view& texte, bool& terminee);
  bool Prend(std::size_t n, const unsigned char*& octets);
  Etat ChaineBinaire(Groupe& g);

  std::string_view data_;
  std::size_t position_ = 0;
  long ligne_ = 0;  // number of the line read last
  bool binaire_ = false;
  bool codeLarge_ = false;  // binary: codes of two bytes (since R13)
  std::string_view faux_;
};

}  // namespace pathwerk::lecture::dxf
