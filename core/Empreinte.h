// What tells one state of a file from another without reading it.
#pragma once

#include <sys/stat.h>

#include <string>

namespace ovelin::magasin {

struct Empreinte {
  bool existe = false;
  dev_t volume = 0;
  ino_t numero = 0;
  off_t taille = 0;
  timespec contenu{}, fiche{};
  bool operator==(const Empreinte& o) const;
};
Empreinte Releve(const std::string& chemin);

}  // namespace ovelin::magasin
