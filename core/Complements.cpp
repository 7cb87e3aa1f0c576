#include "core/Complements.h"

#include <algorithm>
#include <charconv>
#include <system_error>

#include "base/Texte.h"
#include "core/Texte8.h"

namespace ovelin {

namespace {

constexpr std::string_view LigneIlot = "$$SeI";
constexpr std::string_view LigneCalque = "$$SeC";
constexpr std::size_t LargeurCode = 2;
constexpr std::size_t LargeurCouleur = 6;

constexpr std::string_view Chiffres16 = "0123456789ABCDEF";

void AjouteChiffres16(std::string& texte, std::uint32_t v, int nombre) {
  for (int bit = 4 * (nombre - 1); bit >= 0; bit -= 4) texte += Chiffres16[(v >> bit) & 0xF];
}

std::optional<std::uint32_t> Nombre16(std::string_view chiffres) {
  std::uint32_t v = 0;
  const char* const fin = chiffres.data() + chiffres.size();
  const auto lu = std::from_chars(chiffres.data(), fin, v, 16);
  if (chiffres.empty() || lu.ec != std::errc{} || lu.ptr != fin) return std::nullopt;
  return v;
}

// "=" and "$" would make a setting of the line for who looks for one; blanks at an end get lost on the way.
std::string Protege(std::string_view nom) {
  std::string texte;
  for (std::size_t i = 0; i < nom.size(); ++i) {
    const unsigned char c = base::Octet(nom[i]);
    const bool bord = i == 0 || i + 1 == nom.size();
    if (c < 0x20 || c == 0x7F || c == '%' || c == '=' || c == '$' || (c == ' ' && bord)) {
      texte += '%';
      AjouteChiffres16(texte, c, 2);
    } else {
      texte += nom[i];
    }
  }
  return texte;
}

std::optional<std::string> Deprotege(std::string_view texte) {
  std::string nom;
  for (std::size_t i = 0; i < texte.size(); ++i) {
    if (texte[i] != '%') {
      nom += texte[i];
      continue;
    }
    const auto v = i + 2 < texte.size() ? Nombre16(texte.substr(i + 1, 2)) : std::nullopt;
    if (!v || *v >= 0x80) return std::nullopt;
    nom += static_cast<char>(*v);
    i += 2;
  }
  return nom;
}

std::optional<LigneComplement> LitCalque(LigneComplement lue, std::string_view reste) {
  if (reste.size() < LargeurCouleur) return std::nullopt;
  const std::string_view couleur = reste.substr(0, LargeurCouleur);
  if (couleur.find_first_not_of(' ') != std::string_view::npos) {
    lue.couleur = Nombre16(couleur);
    if (!lue.couleur) return std::nullopt;
  }
  const auto nom = Deprotege(DeTexte8(reste.substr(LargeurCouleur)));
  if (!nom) return std::nullopt;
  lue.entiere = nom->size() <= CalqueMax;
  lue.calque = NomDeCalque(*nom);
  return lue;
}

}  // namespace

std::string NomDeCalque(std::string_view octets) {
  // What lies far behind the end need not be looked at; no character of 8 bits takes more than 3 bytes of UTF-8.
  std::string nom = DeTexte8(Coupe8(octets, 4 * CalqueMax));
  for (std::size_t i = 0; i < nom.size(); ++i) {
    const unsigned char c = base::Octet(nom[i]);
    if (c < 0x20 || c == 0x7F) nom[i] = ' ';
    // U+0080 to U+009F
    if (c == 0xC2 && base::Octet(nom[i + 1]) < 0xA0) nom[i] = nom[i + 1] = ' ';
  }
  nom = Coupe8(base::SansBlancs(nom), CalqueMax);
  return std::string(base::SansBlancs(nom));
}

const Complement& TableComplements::De(Code2 code) const {
  static const Complement neutre;
  const auto place = complements_.find(code);
  return place == complements_.end() ? neutre : place->second;
}

void TableComplements::Pose(Code2 code, Complement complement) {
  if (complement == Complement{}) {
    complements_.erase(code);
  } else {
    complements_.insert_or_assign(code, std::move(complement));
  }
}

void ComposeComplement(std::string& texte, Code2 code, const Complement& complement) {
  if (complement.Ilot) texte.append(LigneIlot).append(code.Texte()).append("1\r\n");
  if (complement.Calque.empty() && !complement.Couleur) return;
  texte.append(LigneCalque).append(code.Texte());
  if (complement.Couleur) {
    AjouteChiffres16(texte, *complement.Couleur, LargeurCouleur);
  } else {
    texte.append(LargeurCouleur, ' ');
  }
  texte.append(EnTexte8(Protege(complement.Calque))).append("\r\n");
}

bool EstLigneComplement(std::string_view ligne) {
  return (ligne.starts_with(LigneIlot) || ligne.starts_with(LigneCalque)) &&
         ligne.find('=', LigneIlot.size() + LargeurCode) == std::string_view::npos;
}

std::optional<LigneComplement> LitLigneComplement(std::string_view ligne) {
  if (!EstLigneComplement(ligne) || ligne.size() <= LigneIlot.size() + LargeurCode) return std::nullopt;
  LigneComplement lue;
  lue.code = Code2(ligne.substr(LigneIlot.size(), LargeurCode));
  const std::string_view reste = ligne.substr(LigneIlot.size() + LargeurCode);
  if (ligne.starts_with(LigneCalque)) return LitCalque(std::move(lue), reste);
  lue.ilot = true;
  return base::SansBlancs(reste) == "1" ? std::optional(lue) : std::nullopt;
}

}  // namespace ovelin
