#include <dlfcn.h>

#include <utility>

#include "closed/ZenikCom.h"
#include "closed/zenikcom/Verrou.h"

namespace zenikcom {

namespace {

using FonctionConnectee = std::int32_t (*)();
using FonctionEnvoie = std::int32_t (*)(std::uint8_t*, std::int32_t*);
using FonctionFerme = void (*)();

// A loaded library, let go at the end of its scope.
class Chargee {
 public:
  explicit Chargee(const std::string& chemin) : poignee_(dlopen(chemin.c_str(), RTLD_NOW | RTLD_LOCAL)) {}
  ~Chargee() {
    if (poignee_ != nullptr) dlclose(poignee_);
  }
  Chargee(Chargee&& autre) noexcept : poignee_(std::exchange(autre.poignee_, nullptr)) {}
  Chargee& operator=(Chargee&&) = delete;
  [[nodiscard]] bool La() const { return poignee_ != nullptr; }
  template <class Fonction>
  bool Trouve(const char* nom, Fonction& fonction) const {
    fonction = reinterpret_cast<Fonction>(dlsym(poignee_, nom));
    return fonction != nullptr;
  }

 private:
  void* poignee_;
};

class Bibliotheque final : public Liaison {
 public:
  Bibliotheque(Chargee chargee, FonctionConnectee connectee, FonctionEnvoie envoie, FonctionFerme ferme,
               Verrou verrou)
      : chargee_(std::move(chargee)),
        connectee_(connectee),
        envoie_(envoie),
        ferme_(ferme),
        verrou_(std::move(verrou)) {}
  std::int32_t EstConnectee() override { return connectee_(); }
  std::int32_t Envoie(TamponOctets& tampon, std::int32_t& modeEnvoi) override {
    TamponOctets octets = tampon;
    octets[0] = 0;
    const std::int32_t resultat = envoie_(octets.data(), &modeEnvoi);
    // Whatever a library leaves in the array of an exchange that failed is no reply.
    if (resultat == Reussi) tampon = octets;
    return resultat;
  }
  void Ferme() override { ferme_(); }

 private:
  Chargee chargee_;
  FonctionConnectee connectee_;
  FonctionEnvoie envoie_;
  FonctionFerme ferme_;
  Verrou verrou_;
};

}  // namespace

Ouverture LiaisonBibliotheque(const std::string& chemin, const std::string& fichierVerrou) {
  if (!chemin.starts_with('/')) return {nullptr, Refus::CheminRelatif, chemin};
  Chargee chargee(chemin);
  if (!chargee.La()) {
    const char* raison = dlerror();
    return {nullptr, Refus::Illisible, raison == nullptr ? chemin : raison};
  }
  FonctionConnectee connectee = nullptr;
  FonctionEnvoie envoie = nullptr;
  FonctionFerme ferme = nullptr;
  if (!chargee.Trouve("ZENIK_IsConnected", connectee))
    return {nullptr, Refus::SymboleManquant, "ZENIK_IsConnected"};
  if (!chargee.Trouve("ZENIK_Send", envoie)) return {nullptr, Refus::SymboleManquant, "ZENIK_Send"};
  if (!chargee.Trouve("ZENIK_Close", ferme)) return {nullptr, Refus::SymboleManquant, "ZENIK_Close"};
  Verrou verrou;
  if (!verrou.Prend(fichierVerrou)) return {nullptr, Refus::Occupee, fichierVerrou};
  return {std::make_unique<Bibliotheque>(std::move(chargee), connectee, envoie, ferme, std::move(verrou)),
          Refus::Aucun, ""};
}

}  // namespace zenikcom
