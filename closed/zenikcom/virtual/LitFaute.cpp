#include <charconv>

#include "closed/CarteVirtuelle.h"

namespace zenikcom {

namespace {

template <class Nombre>
bool LitTout(std::string_view texte, Nombre& nombre) {
  const char* fin = texte.data() + texte.size();
  const auto [ou, erreur] = std::from_chars(texte.data(), fin, nombre);
  return erreur == std::errc{} && ou == fin;
}

}  // namespace

std::optional<Faute> LitFaute(std::string_view texte) {
  const std::size_t premier = texte.find(':');
  if (premier == std::string_view::npos) return std::nullopt;
  Faute faute;
  if (!LitTout(texte.substr(0, premier), faute.echange) || faute.echange < 1) return std::nullopt;
  std::string_view nom = texte.substr(premier + 1);
  const std::size_t second = nom.find(':');
  const bool duree = second != std::string_view::npos;
  if (duree) {
    const std::string_view secondes = nom.substr(second + 1);
    nom = nom.substr(0, second);
    if (!LitTout(secondes, faute.secondes) || !(faute.secondes > 0 && faute.secondes <= 1e9)) return std::nullopt;
  }
  for (const NomFaute& connue : NomsFautes) {
    if (connue.nom != nom) continue;
    faute.genre = connue.genre;
    if (duree && faute.genre != GenreFaute::Debranche) return std::nullopt;
    return faute;
  }
  return std::nullopt;
}

}  // namespace zenikcom
