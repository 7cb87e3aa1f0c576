// HP-GL text cut into instructions. Knows which instruction carries text, what lies around a plot (printer escape
// sequences, job language, other languages in between) and nothing of what the instructions mean.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/Texte.h"

namespace pathwerk::lecture::hpgl {

// The two letters of a name as one number.
constexpr unsigned NomHpgl(char a, char b) { return base::Octet(a) * 256U + base::Octet(b); }

struct HpglInstruction {
  std::array<char, 2> nom{};    // two upper-case letters
  std::vector<double> nombres;  // the parameters; not finite when a number is out of range
  std::string_view texte;       // LB, BL: the label; PE: the encoded data; SM: the symbol
  bool page = false;            // no instruction but a printer's page eject or reset; `nom` is blank
  std::size_t position = 0;     // byte of the first letter
  bool interrompue = false;     // the file ended before the terminator that this instruction must have

  [[nodiscard]] bool Est(std::string_view n) const { return n.size() == 2 && nom[0] == n[0] && nom[1] == n[1]; }
  [[nodiscard]] std::string Nom() const { return {nom[0], nom[1]}; }
};

class HpglLexeur {
 public:
  explicit HpglLexeur(std::string_view donnees) : donnees_(donnees) {}

  // Fills in the next instruction; false at the end of the file.
  bool Suivante(HpglInstruction& instruction);

  [[nodiscard]] std::size_t Position() const { return pos_; }
  // Bytes of raster graphics were met between the plots.
  [[nodiscard]] long NbTrames() const { return nbTrames_; }
  // Bytes outside any instruction: neither a letter nor a separator.
  [[nodiscard]] long NbPerdus() const { return nbPerdus_; }
  [[nodiscard]] std::size_t PremierPerdu() const { return premierPerdu_; }
  // The file ends behind the first letter of an instruction.
  [[nodiscard]] bool Coupe() const { return coupe_; }

 private:
  enum class Langue { Hpgl, Pcl, Pjl };

  [[nodiscard]] bool Fini() const { return pos_ >= donnees_.size(); }
  [[nodiscard]] unsigned char Ici() const { return base::Octet(donnees_[pos_]); }
  [[nodiscard]] unsigned char A(std::size_t p) const { return p < donnees_.size() ? base::Octet(donnees_[p]) : 0; }

  bool ProchaineLettre();
  void Echappe();
  void CommandeAppareil();
  void CommandePcl();
  void LignePjl();
  bool DeuxiemeLettre(HpglInstruction& instruction);
  void LitContenu(HpglInstruction& instruction);
  void LitTexte(HpglInstruction& instruction);
  void LitEncode(HpglInstruction& instruction);
  void LitFinDeTexte();
  void LitSymbole(HpglInstruction& instruction);
  void SauteCitation();
  void SauteCommentaire();
  void LitNombres(HpglInstruction& instruction);
  bool PrendNombre(double& valeur);

  std::string_view donnees_;
  std::size_t pos_ = 0;
  Langue langue_ = Langue::Hpgl;
  bool ejection_ = false;
  bool coupe_ = false;
  unsigned char finDeTexte_ = 3;  // ETX
  long nbTrames_ = 0;
  long nbPerdus_ = 0;
  std::size_t premierPerdu_ = 0;
};

}  // namespace pathwerk::lecture::hpgl
