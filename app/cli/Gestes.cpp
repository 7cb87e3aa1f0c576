#include "app/cli/Gestes.h"

#include <algorithm>
#include <utility>

#include "controller/ChoixCarte.h"
#include "controller/OperateurCarte.h"

namespace ovelin::cli::Gestes {

namespace {

class LiaisonTouchee final : public zenikcom::Liaison {
 public:
  LiaisonTouchee(std::unique_ptr<zenikcom::Liaison> liaison, std::vector<GesteCarte> gestes)
      : liaison_(std::move(liaison)), gestes_(std::move(gestes)) {}

  std::int32_t EstConnectee() override { return liaison_->EstConnectee(); }
  std::int32_t Envoie(zenikcom::TamponOctets& tampon, std::int32_t& modeEnvoi) override {
    Touche();
    return liaison_->Envoie(tampon, modeEnvoi);
  }
  void Ferme() override { liaison_->Ferme(); }

 private:
  void Touche() {
    if (gestes_.empty() || !LaCarte.virtuelle) return;
    const std::int64_t echange = LaCarte.virtuelle->Compteurs().echanges + 1;
    while (!gestes_.empty() && gestes_.front().echange <= echange) {
      FaitGeste(*LaCarte.virtuelle, gestes_.front());
      gestes_.erase(gestes_.begin());
    }
  }

  std::unique_ptr<zenikcom::Liaison> liaison_;
  std::vector<GesteCarte> gestes_;  // in the order of their exchanges
};

}  // namespace

std::unique_ptr<zenikcom::Liaison> Enveloppe(std::unique_ptr<zenikcom::Liaison> liaison,
                                             const std::vector<std::string>& gestes) {
  std::vector<GesteCarte> lus;
  for (const std::string& texte : gestes) {
    if (const auto geste = LitGeste(texte)) lus.push_back(*geste);
  }
  if (lus.empty()) return liaison;
  std::stable_sort(lus.begin(), lus.end(),
                   [](const GesteCarte& a, const GesteCarte& b) { return a.echange < b.echange; });
  return std::make_unique<LiaisonTouchee>(std::move(liaison), std::move(lus));
}

}  // namespace ovelin::cli::Gestes
