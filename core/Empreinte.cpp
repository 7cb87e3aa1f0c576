#include "core/Empreinte.h"

namespace ovelin::magasin {

bool Empreinte::operator==(const Empreinte& o) const {
  const auto meme = [](const timespec& a, const timespec& b) {
    return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec;
  };
  return existe == o.existe && volume == o.volume && numero == o.numero && taille == o.taille &&
         meme(contenu, o.contenu) && meme(fiche, o.fiche);
}

Empreinte Releve(const std::string& chemin) {
  struct stat etat {};
  if (stat(chemin.c_str(), &etat) != 0) return {};
  return {true, etat.st_dev, etat.st_ino, etat.st_size, etat.st_mtim, etat.st_ctim};
}

}  // namespace ovelin::magasin
