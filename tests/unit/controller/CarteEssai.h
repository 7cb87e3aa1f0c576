// The class over a virtual board that runs as fast as it can.
#pragma once

#include <memory>
#include <utility>

#include "closed/CarteVirtuelle.h"
#include "closed/ZenikCom.h"
#include "controller/ClsCdeZENIK.h"

namespace essai {

struct CarteEssai {
  explicit CarteEssai(zenikcom::ConditionsCarte conditions = {}) {
    conditions.rapide = true;
    carte = zenikcom::CreeCarteVirtuelle(std::move(conditions));
    cde = std::make_unique<ovelin::ClsCdeZENIK>(zenikcom::LiaisonVirtuelle(carte));
  }
  // The exchange that comes next fails in this way.
  void Fausse(zenikcom::GenreFaute genre, int apres = 1) const {
    carte->Fautes({{carte->Compteurs().echanges + apres, genre, 0}});
  }

  std::shared_ptr<zenikcom::CarteVirtuelle> carte;
  std::unique_ptr<ovelin::ClsCdeZENIK> cde;
};

}  // namespace essai
