// Cuts HP-GL into instructions.
//
// An instruction is two letters and numbers, ended by ";" or simply by the next letter; blanks, line ends, control
// characters and NULs are nothing. Few carry something else:
//
//   LBtext<ETX>      a label, ended by the character that DT set      PE...;   bytes above 127 and any letter
//   DT#  DT#,1       the next byte whatever it is                      SM*      likewise
//   CO"..." BP5,"x"  quoted text; CO also without quotes              MG WD    free text
//
// Around it: device control (ESC . letter [numbers :]), the printer languages (ESC % n A leaves the plot, ESC % n B
// comes back, raster data with a byte count), the job language (ESC % -12345 X, then lines "@PJL ...").
#include "closed/pathwerk/lecture/hpgl/Lexeur.h"

#include <charconv>
#include <limits>

#include "base/Indices.h"
#include "base/Texte.h"
#include "closed/pathwerk/lecture/Decimaux.h"

namespace pathwerk::lecture::hpgl {

namespace {

constexpr unsigned char Esc = 27;
constexpr unsigned char Etx = 3;

bool EstLettre(unsigned char c) { return base::EstLettre(static_cast<char>(c)); }
bool EstChiffre(unsigned char c) { return base::EstChiffre(static_cast<char>(c)); }
// Blanks, line ends, control characters and NULs are nothing.
bool EstRien(unsigned char c) { return c <= ' ' || c == 127; }
char Majuscule(unsigned char c) { return static_cast<char>(c >= 'a' ? c - 32 : c); }

}  // namespace

bool HpglLexeur::Suivante(HpglInstruction& instruction) {
  instruction.nombres.clear();
  instruction.texte = {};
  instruction.page = false;
  instruction.interrompue = false;
  for (;;) {
    const bool lettre = ProchaineLettre();
    instruction.position = pos_;
    if (ejection_) {
      ejection_ = false;
      instruction.nom = {' ', ' '};
      instruction.page = true;
      return true;
    }
    if (!lettre) return false;
    if (!DeuxiemeLettre(instruction)) continue;
    LitContenu(instruction);
    return true;
  }
}

// Goes to the next letter that can open an instruction, or stops behind a page eject.
bool HpglLexeur::ProchaineLettre() {
  while (!Fini() && !ejection_) {
    const unsigned char c = Ici();
    if (c == Esc) {
      Echappe();
    } else if (langue_ == Langue::Pcl) {
      ejection_ = c == 12;  // form feed
      ++pos_;
    } else if (c == '@' && (langue_ == Langue::Pjl || donnees_.substr(pos_, 4) == "@PJL")) {
      LignePjl();
    } else if (EstLettre(c)) {
      langue_ = Langue::Hpgl;
      return true;
    } else {
      const bool separateur =
          EstRien(c) || EstChiffre(c) || c == ';' || c == ',' || c == '.' || c == '+' || c == '-';
      if (!separateur && nbPerdus_++ == 0) premierPerdu_ = pos_;
      ++pos_;
    }
  }
  return false;
}

void HpglLexeur::Echappe() {
  const unsigned char suite = A(pos_ + 1);
  if (suite == '.') {
    CommandeAppareil();
  } else if (suite >= 0x21 && suite <= 0x2F) {
    CommandePcl();
  } else {
    if (suite == 'E') ejection_ = true;  // printer reset: what has been plotted is a sheet of its own
    pos_ += suite < 0x30 || suite > 0x7E ? 1 : 2;
  }
}

// ESC . letter, with numbers only when a colon closes them: "ESC.@;0:" but "ESC.Y" alone.
void HpglLexeur::CommandeAppareil() {
  pos_ += 3;
  std::size_t p = pos_;
  while (p < donnees_.size() && p - pos_ < 200 && (EstChiffre(A(p)) || A(p) == ';' || A(p) == ',' || A(p) == ' '))
    ++p;
  if (A(p) == ':') pos_ = p + 1;
  if (pos_ > donnees_.size()) pos_ = donnees_.size();
}

// ESC, a group of one or two signs, then value and letter, again as long as the letter is a small one.
void HpglLexeur::CommandePcl() {
  const unsigned char famille = A(pos_ + 1);
  pos_ += 2;
  unsigned char groupe = 0;
  if (A(pos_) >= 0x60 && A(pos_) <= 0x7E) groupe = A(pos_++);
  while (!Fini()) {
    double valeur = 0;
    if (EstChiffre(Ici()) || Ici() == '-' || Ici() == '+') {
      if (!PrendNombre(valeur)) ++pos_;
    }
    if (Fini() || Ici() < 0x40 || Ici() > 0x7E) return;
    const unsigned char lettre = Ici();
    ++pos_;
    const char grande = Majuscule(lettre);
    if (famille == '%' && grande == 'B') langue_ = Langue::Hpgl;
    if (famille == '%' && grande == 'A') langue_ = Langue::Pcl;
    if (famille == '%' && grande == 'X') langue_ = Langue::Pjl;
    // Counted bytes follow: raster rows and planes, fonts, transparent text.
    const bool octets = grande == 'W' || (famille == '*' && groupe == 'b' && grande == 'V') ||
                        (famille == '&' && groupe == 'p' && grande == 'X');
    if (octets && valeur > 0) {
      const double reste = static_cast<double>(donnees_.size() - pos_);
      pos_ += valeur < reste ? static_cast<std::size_t>(valeur) : donnees_.size() - pos_;
      if (famille == '*' && groupe == 'b') ++nbTrames_;
      return;
    }
    if (lettre < 0x60) return;
  }
}

// A line of the job language; it may name the language of what follows.
void HpglLexeur::LignePjl() {
  const std::size_t fin = std::min(donnees_.find('\n', pos_), donnees_.size());
  std::string ligne;
  for (const char c : donnees_.substr(pos_, std::min<std::size_t>(fin - pos_, 200))) {
    if (!EstRien(base::Octet(c))) {
      ligne += EstLettre(base::Octet(c)) ? Majuscule(base::Octet(c)) : c;
    }
  }
  pos_ = std::min(fin + 1, donnees_.size());
  if (ligne.find("ENTERLANGUAGE=") == std::string::npos) return;
  langue_ = ligne.find("HPGL") != std::string::npos ? Langue::Hpgl : Langue::Pcl;
}

// The second letter of the name. Control characters and blanks may stand between; a letter alone is lost.
bool HpglLexeur::DeuxiemeLettre(HpglInstruction& instruction) {
  instruction.nom[0] = Majuscule(Ici());
  const std::size_t debut = pos_++;
  while (!Fini() && EstRien(Ici()) && Ici() != Esc) ++pos_;
  if (Fini() || !EstLettre(Ici())) {
    coupe_ = Fini();
    if (nbPerdus_++ == 0) premierPerdu_ = debut;
    return false;
  }
  instruction.nom[1] = Majuscule(Ici());
  ++pos_;
  return true;
}

void HpglLexeur::LitContenu(HpglInstruction& instruction) {
  switch (NomHpgl(instruction.nom[0], instruction.nom[1])) {
    case NomHpgl('L', 'B'):
    case NomHpgl('B', 'L'):
    case NomHpgl('W', 'D'):
      return LitTexte(instruction);
    case NomHpgl('P', 'E'):
      return LitEncode(instruction);
    case NomHpgl('D', 'T'):
      return LitFinDeTexte();
    case NomHpgl('S', 'M'):
      return LitSymbole(instruction);
    case NomHpgl('M', 'G'):
      pos_ = std::min(donnees_.find(';', pos_), donnees_.size());
      return;
    case NomHpgl('C', 'O'):
      return SauteCommentaire();
    case NomHpgl('B', 'P'):
      LitNombres(instruction);
      return SauteCitation();
    default:
      return LitNombres(instruction);
  }
}

void HpglLexeur::LitTexte(HpglInstruction& instruction) {
  const std::size_t fin = donnees_.find(static_cast<char>(finDeTexte_), pos_);
  instruction.interrompue = fin == std::string_view::npos;
  const std::size_t arret = std::min(fin, donnees_.size());
  instruction.texte = donnees_.substr(pos_, arret - pos_);
  pos_ = std::min(arret + 1, donnees_.size());
}

void HpglLexeur::LitEncode(HpglInstruction& instruction) {
  std::size_t p = pos_;
  while (p < donnees_.size() && donnees_[p] != ';' && A(p) != Esc) ++p;
  instruction.interrompue = p == donnees_.size();
  instruction.texte = donnees_.substr(pos_, p - pos_);
  pos_ = p;
}

// "DT;" brings ETX back. NUL, ENQ, a line end and ESC can't end a label and mean the same.
void HpglLexeur::LitFinDeTexte() {
  finDeTexte_ = Etx;
  if (Fini()) return;
  const unsigned char c = Ici();
  if (c == ';' || c == 0 || c == 5 || c == '\n' || c == '\r' || c == Esc) return;
  finDeTexte_ = c;
  ++pos_;
  if (A(pos_) != ',') return;  // the second parameter: whether the terminator is printed too
  ++pos_;
  double mode = 0;
  PrendNombre(mode);
}

void HpglLexeur::LitSymbole(HpglInstruction& instruction) {
  while (!Fini() && EstRien(Ici()) && Ici() != Esc) ++pos_;
  if (Fini() || Ici() == ';' || Ici() == Esc) return;
  instruction.texte = donnees_.substr(pos_, 1);
  ++pos_;
}

// Skips what precedes a quoted text and the text itself, up to ";" or the next letter.
void HpglLexeur::SauteCitation() {
  while (!Fini() && Ici() != ';' && !EstLettre(Ici()) && Ici() != Esc) {
    const bool guillemet = Ici() == '"';
    ++pos_;
    if (!guillemet) continue;
    const std::size_t fin = donnees_.find('"', pos_);
    pos_ = std::min(fin, donnees_.size() - 1) + 1;
  }
}

// A quoted comment may hold anything, one without quotes everything but ";".
void HpglLexeur::SauteCommentaire() {
  std::size_t p = pos_;
  while (p < donnees_.size() && EstRien(A(p)) && A(p) != Esc) ++p;
  if (A(p) == '"' && donnees_.find('"', p + 1) != std::string_view::npos) {
    SauteCitation();
  } else {
    pos_ = std::min(donnees_.find(';', p), donnees_.size());
  }
}

// An instruction ends with ";", with the next letter or with a line end in front of the end of the file; when the
// file just stops behind a number, a digit of it or the rest of its list may be missing.
void HpglLexeur::LitNombres(HpglInstruction& instruction) {
  bool fini = true;
  while (!Fini()) {
    const unsigned char c = Ici();
    fini = EstRien(c);
    if (EstChiffre(c) || c == '.' || c == '-' || c == '+') {
      double valeur = 0;
      const char* const p = donnees_.data() + pos_;
      if (const char* const apres = LitDecimal(p, donnees_.data() + donnees_.size(), valeur)) {
        pos_ += base::Indice(apres - p);
        instruction.nombres.push_back(valeur);
      } else if (PrendNombre(valeur)) {
        instruction.nombres.push_back(valeur);
      } else {
        ++pos_;
      }
    } else if (c == ';') {
      ++pos_;
      return;
    } else if ((EstRien(c) && c != Esc) || c == ',') {
      ++pos_;
    } else {
      return;
    }
  }
  instruction.interrompue = !fini;
}

// A decimal number. "1e5" is one too: no instruction begins with a letter and a digit. A number too large for a
// double comes back infinite, one too small as 0.
bool HpglLexeur::PrendNombre(double& valeur) {
  std::size_t debut = pos_;
  if (A(debut) == '+') ++debut;
  const char* const p = donnees_.data() + std::min(debut, donnees_.size());
  const char* const fin = donnees_.data() + donnees_.size();
  if (p == fin) return false;
  // The library would read "-inf" and "nan" too.
  const unsigned char c = base::Octet(*p);
  const unsigned char suite = A(debut + 1);
  const bool nombre =
      EstChiffre(c) || c == '.' || (c == '-' && debut == pos_ && (EstChiffre(suite) || suite == '.'));
  if (!nombre) return false;
  const auto [apres, erreur] = std::from_chars(p, fin, valeur);
  if (erreur == std::errc::invalid_argument) return false;
  if (erreur == std::errc::result_out_of_range) {
    const std::string_view lu(p, apres);
    const bool petit = lu.find("e-") != std::string_view::npos || lu.find("E-") != std::string_view::npos ||
                       lu.find_first_not_of("-0.") > lu.find('.');
    valeur = petit ? 0 : std::numeric_limits<double>::infinity();
  }
  pos_ += base::Indice(apres - (donnees_.data() + pos_));
  return true;
}

}  // namespace pathwerk::lecture::hpgl
