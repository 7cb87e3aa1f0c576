// The geometry library as the procedures of this folder call it. One struct of functions, so that another library,
// or a script of a test, can stand in for it: what it answers can't be told beforehand, and every answer has its
// rule.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "closed/Pathwerk.h"

namespace ovelin {

struct Bibliotheque {
  using Points = std::vector<pathwerk::PointTrace>;
  std::function<std::int32_t(Points&, float tolerance, float decal, std::int32_t recouvrement)> DecalSequence;
  std::function<std::int32_t(Points&, float tolerance)> NettoyageFichier;
  std::function<void(Points&)> LissageSequence;
  std::function<std::int32_t(Points&, const std::string& texte, const std::string& police, std::int32_t espace,
                             std::int32_t style)>
      Texte;
  std::function<std::int32_t(Points&, const std::string& texte, const std::string& police, std::int32_t espace,
                             std::int32_t style, double hauteur)>
      TexteHaut;
  std::function<std::int32_t(const Points&, const std::string& fichier, std::string& commentaire)> EcrireFichier;
  using Chemin = std::span<const pathwerk::PointTrace>;
  std::function<std::int32_t(Points&, float tolerance, float decal, std::int32_t recouvrement, Chemin ilots)>
      DecalSequenceIlots;
  std::function<std::vector<std::size_t>(Chemin contour, std::span<const Chemin> chemins)> IlotsDans;
};

// This system's own library, unless replaced.
extern Bibliotheque Biblio;
Bibliotheque BibliothequePathwerk();

}  // namespace ovelin
