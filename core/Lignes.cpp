#include "core/Lignes.h"

#include "core/Nombres.h"

namespace ovelin {

std::string FinDeLigne(std::string_view contenu) {
  const std::size_t fin = contenu.find_first_of("\r\n");
  if (fin == std::string_view::npos) return "\r\n";
  if (contenu[fin] == '\n') return "\n";
  return fin + 1 < contenu.size() && contenu[fin + 1] == '\n' ? "\r\n" : "\r";
}

std::unordered_map<std::string, std::string> IndexeReglages(std::string_view contenu) {
  std::unordered_map<std::string, std::string> index;
  // From mark to mark, not line by line: a large project is nearly all points, and they hold no "$".
  for (std::size_t i = contenu.find("$$"); i != std::string_view::npos; i = contenu.find("$$", i)) {
    const bool enTete = i == 0 || contenu[i - 1] == '\n' || contenu[i - 1] == '\r';
    if (!enTete) {
      ++i;
      continue;
    }
    std::string_view reste = contenu.substr(i);
    std::string_view ligne;
    LigneSuivante(reste, ligne);
    const std::size_t egal = ligne.find('=');
    if (egal != std::string_view::npos) {
      index.try_emplace(std::string(ligne.substr(2, egal - 2)), Rogne(ligne.substr(egal + 1)));
    }
    i = contenu.size() - reste.size();
  }
  return index;
}

void PlaceLigne(std::string& contenu, std::string_view cle, std::string_view valeur) {
  std::string ligne = "$$";
  ligne.append(cle).append("=");
  const std::size_t trouve = contenu.find(ligne);
  ligne.append(valeur);
  const std::string fin = FinDeLigne(contenu);
  if (trouve != std::string::npos) {
    const std::size_t avant = contenu.find_last_of("\r\n", trouve);
    const std::size_t debut = avant == std::string::npos ? 0 : avant + 1;
    std::size_t bout = contenu.find_first_of("\r\n", trouve);
    if (bout == std::string::npos) bout = contenu.size();
    contenu.replace(debut, bout - debut, ligne);
  }
  // A last piece that is not empty is a line too.
  if (!contenu.empty() && contenu.back() != '\n' && contenu.back() != '\r') contenu += fin;
  if (trouve == std::string::npos) contenu.append(ligne).append(fin);
}

void OteLigne(std::string& contenu, std::string_view cle) {
  const std::string debut = std::string("$$").append(cle).append("=");
  std::string_view reste = contenu;
  while (!reste.empty()) {
    const std::size_t place = contenu.size() - reste.size();
    std::string_view ligne;
    if (!LigneSuivante(reste, ligne)) return;
    if (!ligne.starts_with(debut)) continue;
    contenu.erase(place, contenu.size() - reste.size() - place);
    return;
  }
}

}  // namespace ovelin
