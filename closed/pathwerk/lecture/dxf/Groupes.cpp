#include "closed/pathwerk/lecture/dxf/Groupes.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

#include "base/Indices.h"
#include "base/Texte.h"

namespace pathwerk::lecture::dxf {

namespace {

constexpr std::string_view EnteteBinaire{"AutoCAD Binary DXF\r\n\x1a\0", 22};
constexpr int CodeCommentaire = 999;
constexpr int CodeMax = 1071;
constexpr char FinDesDonnees = '\x1a';  // at the beginning of a line

// Around a value: a careless transfer leaves NULs and CRs.
constexpr bool Blanc(char c) { return base::EstBlanc(c) || c == '\0' || c == '\r'; }

// Group codes are small integers; anything else on a code's line means that this is no DXF.
bool Code(std::string_view t, int& code) {
  if (!t.empty() && t.front() == '+') t.remove_prefix(1);
  const auto [fin, erreur] = std::from_chars(t.data(), t.data() + t.size(), code);
  return erreur == std::errc() && fin == t.data() + t.size() && code >= -10 && code <= CodeMax;
}

// A value that can't be empty: types, names of variables, numbers. Empty lines before it are stray ones.
constexpr bool JamaisVide(int code) {
  return code == 0 || code == 9 || (code >= 10 && code <= 99) || (code >= 140 && code <= 179) ||
         (code >= 210 && code <= 239);
}

constexpr std::size_t MotOctets = sizeof(std::uint64_t);
constexpr std::uint64_t Partout(char c) { return 0x0101010101010101ULL * base::Octet(c); }

// The high bit of each byte that is 0, exact up to and with the first one of them.
constexpr std::uint64_t Nuls(std::uint64_t mot) { return (mot - Partout('\x01')) & ~mot & Partout('\x80'); }

// The first LF or CR, or the end. Eight bytes at a time, where the first of them is the lowest of a word.
const char* FinLigne(const char* p, const char* fin) {
  if constexpr (std::endian::native == std::endian::little) {
    while (base::Indice(fin - p) >= MotOctets) {
      std::uint64_t mot = 0;
      std::memcpy(&mot, p, MotOctets);
      const std::uint64_t vus = Nuls(mot ^ Partout('\n')) | Nuls(mot ^ Partout('\r'));
      if (vus != 0) return p + std::countr_zero(vus) / 8;
      p += MotOctets;
    }
  }
  while (p != fin && *p != '\n' && *p != '\r') ++p;
  return p;
}

// Behind LF or CR LF; null for any other end of a line.
const char* ApresFin(const char* p, const char* fin) {
  if (p != fin && *p == '\r') ++p;
  return p != fin && *p == '\n' ? p + 1 : nullptr;
}

// Digits one by one; false when one is none.
bool AjouteChiffres(const char* p, const char* fin, std::uint64_t& entier) {
  for (; p != fin; ++p) {
    if (!base::EstChiffre(*p)) return false;
    entier = entier * 10 + static_cast<std::uint64_t>(*p - '0');
  }
  return true;
}

// The last `n`, 1 to 8, of the eight bytes before `fin` as digits behind those of `entier`; false when one is none.
// All at once where the first byte is the lowest of a word: pairs of digits, pairs of pairs, both halves.
bool AjouteMot(const char* fin, std::size_t n, std::uint64_t& entier) {
  if constexpr (std::endian::native != std::endian::little) return AjouteChiffres(fin - n, fin, entier);
  static constexpr std::uint64_t puissances[] = {1,       10,        100,        1'000,      10'000,
                                                 100'000, 1'000'000, 10'000'000, 100'000'000};
  constexpr std::uint64_t Quarts = 0x000000FF000000FFULL;
  std::uint64_t mot = 0;
  std::memcpy(&mot, fin - MotOctets, MotOctets);
  const std::uint64_t siens = ~std::uint64_t{0} << (8 * (MotOctets - n));
  mot = (mot & siens) | (Partout('0') & ~siens);
  // A byte above '9' reaches the high bit with what is added, one below '0' with what is taken.
  if ((((mot + Partout(127 - '9')) | (mot - Partout('0'))) & Partout('\x80')) != 0) return false;
  mot -= Partout('0');
  mot = mot * 10 + (mot >> 8);
  mot = ((mot & Quarts) * 0x000F424000000064ULL + ((mot >> 16) & Quarts) * 0x0000271000000001ULL) >> 32;
  entier = entier * puissances[n] + mot;
  return true;
}

// The digits behind the point.
bool AjouteDecimales(std::string_view t, const char* p, std::uint64_t& entier) {
  const char* const fin = t.data() + t.size();
  const std::size_t n = base::Indice(fin - p);
  if (n > MotOctets && n <= 2 * MotOctets && t.size() >= 2 * MotOctets) {
    return AjouteMot(fin - MotOctets, n - MotOctets, entier) && AjouteMot(fin, MotOctets, entier);
  }
  if (n > 0 && n <= MotOctets && t.size() >= MotOctets) return AjouteMot(fin, n, entier);
  return AjouteChiffres(p, fin, entier);
}

// A plain decimal number, as nearly all are. A whole number up to 2^53 and a power of ten up to 10^22 are exact in
// a double, so that their quotient is the double nearest to the text. False for what needs the general road.
bool LitDecimal(std::string_view t, double& valeur) {
  static constexpr double puissances[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8, 1e9,
                                          1e10, 1e11, 1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18};
  constexpr std::size_t ChiffresMax = 18;  // below 2^63
  constexpr std::uint64_t Exact = 1ULL << 53;
  const char* p = t.data();
  const char* const fin = p + t.size();
  const bool moins = p != fin && *p == '-';
  if (moins) ++p;
  if (base::Indice(fin - p) > ChiffresMax + 1) return false;
  std::uint64_t entier = 0;
  const char* const debut = p;
  for (; p != fin && base::EstChiffre(*p); ++p) entier = entier * 10 + static_cast<std::uint64_t>(*p - '0');
  std::size_t chiffres = base::Indice(p - debut);
  std::size_t decimales = 0;
  if (p != fin) {
    decimales = base::Indice(fin - p) - 1;
    chiffres += decimales;
    if (*p != '.' || chiffres > ChiffresMax || !AjouteDecimales(t, p + 1, entier)) return false;
  }
  if (chiffres == 0 || chiffres > ChiffresMax || entier > Exact) return false;
  const double v = static_cast<double>(entier) / puissances[decimales];
  valeur = moins ? -v : v;
  return true;
}

// How a binary file stores the value of a code.
enum class Type { Chaine, Reel, Entier8, Entier16, Entier32, Entier64, Morceau, Inconnu };

struct Plage {
  int dernier;
  Type type;
};

// Ranges of codes by their last member, rising.
constexpr Plage Plages[] = {
    {9, Type::Chaine},      {59, Type::Reel},      {79, Type::Entier16},  {89, Type::Inconnu},
    {99, Type::Entier32},   {109, Type::Chaine},   {149, Type::Reel},     {159, Type::Inconnu},
    {169, Type::Entier64},  {179, Type::Entier16}, {209, Type::Inconnu},  {239, Type::Reel},
    {269, Type::Inconnu},   {289, Type::Entier16}, {299, Type::Entier8},  {309, Type::Chaine},
    {319, Type::Morceau},   {369, Type::Chaine},   {389, Type::Entier16}, {399, Type::Chaine},
    {409, Type::Entier16},  {419, Type::Chaine},   {429, Type::Entier32}, {439, Type::Chaine},
    {459, Type::Entier32},  {469, Type::Reel},     {481, Type::Chaine},   {998, Type::Inconnu},
    {1003, Type::Chaine},   {1004, Type::Morceau}, {1009, Type::Chaine},  {1059, Type::Reel},
    {1070, Type::Entier16}, {1071, Type::Entier32}};

Type TypeDe(int code) {
  if (code < 0) return Type::Inconnu;
  const auto* p = std::ranges::lower_bound(Plages, code, {}, &Plage::dernier);
  return p == std::end(Plages) ? Type::Inconnu : p->type;
}

std::uint64_t Petit(const unsigned char* octets, std::size_t n) {
  std::uint64_t v = 0;
  for (std::size_t i = 0; i < n; ++i) v |= std::uint64_t{octets[i]} << (8 * i);
  return v;
}

}  // namespace

bool LitReel(const Groupe& g, double& valeur) {
  if (g.binaire) {
    valeur = g.nombre;
    return g.texte.empty();
  }
  if (LitDecimal(g.texte, valeur)) return true;
  std::string_view t = g.texte;
  if (!t.empty() && t.front() == '+') t.remove_prefix(1);
  const auto [fin, erreur] = std::from_chars(t.data(), t.data() + t.size(), valeur);
  if (erreur == std::errc::invalid_argument || fin != t.data() + t.size()) return false;
  if (erreur == std::errc::result_out_of_range) {
    // "1e400" and "1e-400" are numbers all the same.
    const std::size_t exposant = t.find_first_of("eE");
    const bool petit =
        exposant != std::string_view::npos ? t.find('-', exposant) != std::string_view::npos : t.find('.') < 3;
    valeur = petit ? 0 : std::numeric_limits<double>::infinity();
    if (t.front() == '-') valeur = -valeur;
  }
  return true;
}

bool LitEntier(const Groupe& g, int& valeur) {
  double reel = 0;
  if (!LitReel(g, reel) || std::isnan(reel)) return false;
  constexpr double EntierMax = 2147483647.0;
  valeur = static_cast<int>(std::clamp(reel, -EntierMax, EntierMax));
  return true;
}

LecteurGroupes::LecteurGroupes(std::string_view data) : data_(data) {
  if (data_.starts_with(EnteteBinaire)) {
    binaire_ = true;
    position_ = EnteteBinaire.size();
    // The first code is 0 or a comment's. In one byte the letters of its value follow at once.
    if (data_.size() >= position_ + 2) {
      const int premier = base::Octet(data_[position_]) | base::Octet(data_[position_ + 1]) << 8;
      codeLarge_ = premier == 0 || premier == CodeCommentaire;
    }
  } else if (data_.starts_with("\xEF\xBB\xBF")) {
    position_ = 3;
  }
}

Etat LecteurGroupes::Suivant(Groupe& g) {
  for (;;) {
    const Etat etat = SuivantBrut(g);
    if (etat != Etat::Groupe || g.code != CodeCommentaire) return etat;
  }
}

// The next line without its end. `terminee`: it has an end, so nothing of it can be missing. False at the end of
// the data.
bool LecteurGroupes::Ligne(std::string_view& texte, bool& terminee) {
  const char* const debut = data_.data() + position_;
  const char* const fin = data_.data() + data_.size();
  if (debut == fin || *debut == FinDesDonnees) return false;
  const char* p = FinLigne(debut, fin);
  texte = std::string_view(debut, p);
  terminee = p != fin;
  if (terminee) {
    // CR, LF, CRLF, and CRCRLF as a careless transfer leaves it.
    const char* q = p;
    while (q != fin && q - p < 2 && *q == '\r') ++q;
    p = q != fin && *q == '\n' ? q + 1 : p + 1;
  }
  position_ = base::Indice(p - data_.data());
  ++ligne_;
  if (!texte.empty() && (Blanc(texte.front()) || Blanc(texte.back()))) texte = base::SansBlancs(texte, Blanc);
  return true;
}

// A group as nearly all are written: blanks and a code of up to four digits, a value that isn't empty, both lines
// ended by LF or CR LF. False for any other, and nothing has been read.
bool LecteurGroupes::SuivantSimple(Groupe& g) {
  constexpr std::ptrdiff_t Marge = 16;  // more than blanks, digits and line end of a code
  constexpr int BlancsMax = 4;
  constexpr int ChiffresMax = 4;
  const char* p = data_.data() + position_;
  const char* const fin = data_.data() + data_.size();
  if (fin - p < Marge) return false;
  for (int k = 0; k < BlancsMax && *p == ' '; ++k) ++p;
  int code = 0;
  int chiffres = 0;
  for (; chiffres < ChiffresMax && base::EstChiffre(*p); ++chiffres) code = code * 10 + (*p++ - '0');
  const char* const valeur = ApresFin(p, fin);
  if (chiffres == 0 || code > CodeMax || valeur == nullptr || valeur == fin || *valeur == FinDesDonnees)
    return false;
  const char* const bout = FinLigne(valeur, fin);
  const char* const apres = ApresFin(bout, fin);
  if (apres == nullptr || bout == valeur) return false;
  std::string_view texte(valeur, bout);
  if (Blanc(texte.front()) || Blanc(texte.back())) texte = base::SansBlancs(texte, Blanc);
  if (texte.empty()) return false;
  position_ = base::Indice(apres - data_.data());
  ligne_ += 2;
  g.code = code;
  g.texte = texte;
  g.ligne = ligne_;
  g.binaire = false;
  return true;
}

Etat LecteurGroupes::SuivantTexte(Groupe& g) {
  if (SuivantSimple(g)) return Etat::Groupe;
  std::string_view texte;
  bool terminee = false;
  g.code = -1;
  do {
    if (!Ligne(texte, terminee)) return Etat::Fin;
  } while (texte.empty());
  if (!Code(texte, g.code)) {
    faux_ = texte;
    return terminee ? Etat::Faux : Etat::Coupe;
  }
  do {
    if (!terminee || !Ligne(texte, terminee)) return Etat::Coupe;
  } while (texte.empty() && terminee && JamaisVide(g.code));
  g.texte = texte;
  g.ligne = ligne_;
  g.binaire = false;
  // The last line of the data without an end may be a piece of what was meant, but the last word of a file is
  // "EOF" as often as not written so.
  if (!terminee && !(g.code == 0 && (texte == "EOF" || texte == "ENDSEC"))) return Etat::Coupe;
  return Etat::Groupe;
}

bool LecteurGroupes::Prend(std::size_t n, const unsigned char*& octets) {
  if (data_.size() - position_ < n) return false;
  octets = reinterpret_cast<const unsigned char*>(data_.data()) + position_;
  position_ += n;
  return true;
}

// A string in a binary file ends with a NUL.
Etat LecteurGroupes::ChaineBinaire(Groupe& g) {
  const std::size_t nul = data_.find('\0', position_);
  if (nul == std::string_view::npos) return Etat::Coupe;
  g.texte = base::SansBlancs(data_.substr(position_, nul - position_), Blanc);
  position_ = nul + 1;
  return Etat::Groupe;
}

Etat LecteurGroupes::SuivantBinaire(Groupe& g) {
  const unsigned char* o = nullptr;
  g.code = -1;
  if (position_ == data_.size()) return Etat::Fin;
  if (!Prend(codeLarge_ ? 2 : 1, o)) return Etat::Coupe;
  g.code = codeLarge_ ? static_cast<std::int16_t>(Petit(o, 2)) : o[0];
  if (!codeLarge_ && g.code == 255) {  // extended data in files of one-byte codes
    if (!Prend(2, o)) return Etat::Coupe;
    g.code = static_cast<std::int16_t>(Petit(o, 2));
  }
  g.binaire = true;
  g.ligne = 0;
  g.texte = {};
  g.nombre = 0;
  const Type type = g.code == CodeCommentaire ? Type::Chaine : TypeDe(g.code);
  std::size_t n = 8;
  switch (type) {
    case Type::Chaine:
      return ChaineBinaire(g);
    case Type::Entier8:
      n = 1;
      break;
    case Type::Entier16:
      n = 2;
      break;
    case Type::Entier32:
      n = 4;
      break;
    case Type::Morceau:
      if (!Prend(1, o)) return Etat::Coupe;
      return Prend(o[0], o) ? Etat::Groupe : Etat::Coupe;
    case Type::Inconnu:
      faux_ = "code";
      return Etat::Faux;
    default:
      break;
  }
  if (!Prend(n, o)) return Etat::Coupe;
  const std::uint64_t brut = Petit(o, n);
  switch (type) {
    case Type::Reel:
      g.nombre = std::bit_cast<double>(brut);
      break;
    case Type::Entier16:
      g.nombre = static_cast<std::int16_t>(brut);
      break;
    case Type::Entier32:
      g.nombre = base::Compte(brut);
      break;
    case Type::Entier64:
      g.nombre = static_cast<double>(static_cast<std::int64_t>(brut));
      break;
    default:
      g.nombre = static_cast<double>(brut);
      break;
  }
  return Etat::Groupe;
}

}  // namespace pathwerk::lecture::dxf
