// A board that answers as told and keeps what it was sent.
#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "closed/ZenikCom.h"

namespace essai {

struct Envoi {
  zenikcom::TamponOctets octets;
  std::int32_t mode;
};

// Outlives the link that it scripts.
struct Scenario {
  std::int32_t connectee = 1;
  std::int32_t resultat = zenikcom::Reussi;
  std::function<void(zenikcom::TamponOctets&)> reponse;  // writes the reply over the request
  std::vector<Envoi> envois;
  int fermetures = 0;
};

class LiaisonScenario final : public zenikcom::Liaison {
 public:
  explicit LiaisonScenario(Scenario& scenario) : s_(scenario) {}
  std::int32_t EstConnectee() override { return s_.connectee; }
  std::int32_t Envoie(zenikcom::TamponOctets& tampon, std::int32_t& mode) override {
    s_.envois.push_back({tampon, mode});
    if (s_.reponse) s_.reponse(tampon);
    return s_.resultat;
  }
  void Ferme() override { ++s_.fermetures; }

 private:
  Scenario& s_;
};

}  // namespace essai
