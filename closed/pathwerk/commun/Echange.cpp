#include "closed/pathwerk/commun/Echange.h"

#include <utility>

#include "base/Fichiers.h"
#include "base/Texte.h"
#include "closed/Pathwerk.h"

namespace pathwerk {

std::string Extension(const std::string& chemin) {
  std::string e(base::ExtensionBrute(chemin));
  for (char& c : e) c = static_cast<char>(c >= 'a' && c <= 'z' ? c - 32 : c);
  return e;
}

std::string SansNul(const std::string& chemin) { return chemin.substr(0, chemin.find('\0')); }

std::string Coupe(std::string texte, std::size_t octets) {
  if (texte.size() <= octets) return texte;
  std::size_t fin = octets;
  const auto suite = [&](std::size_t i) { return (base::Octet(texte[i]) & 0xC0U) == 0x80U; };
  for (int k = 0; k < 3 && suite(fin); ++k) --fin;
  texte.resize(fin);
  return texte;
}

std::string EnMessage(std::string texte) {
  texte = Coupe(std::move(texte), LongueurMessage);
  texte.resize(LongueurMessage, ' ');
  return texte;
}

}  // namespace pathwerk
