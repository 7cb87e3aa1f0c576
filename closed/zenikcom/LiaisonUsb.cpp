#include "closed/zenikcom/LiaisonUsb.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <utility>

#include "closed/zenikcom/Hidapi.h"
#include "closed/zenikcom/Verrou.h"

namespace zenikcom {

namespace {

constexpr std::int64_t EntreRecherches = 1'000'000'000;  // ns
constexpr int ReponsesAnciennes = 256;                   // more than a device keeps for us

class Usb final : public Liaison {
 public:
  Usb(IdentiteUsb identite, std::function<std::int64_t()> horloge, FonctionsHid hid, Verrou verrou)
      : identite_(identite), horloge_(std::move(horloge)), hid_(std::move(hid)), verrou_(std::move(verrou)) {}
  ~Usb() override { Oublie(); }

  std::int32_t EstConnectee() override {
    if (appareil_ == nullptr) Cherche();
    return appareil_ != nullptr ? 1 : absence_;
  }

  std::int32_t Envoie(TamponOctets& tampon, std::int32_t&) override {
    if (EstConnectee() != 1) return absence_;
    const std::int64_t debut = horloge_();
    TamponOctets octets = tampon;
    octets[0] = 0;  // the number of the report
    if (!VideReponses() || hid_.ecrit(appareil_, octets.data(), octets.size()) < 0) {
      Oublie();
      return EcritureEchouee;
    }
    const std::int64_t reste = DureeMaxi - (horloge_() - debut);
    const int ms = static_cast<int>(std::clamp<std::int64_t>(reste, 0, DureeMaxi) / 1'000'000);
    const int lus = hid_.lit(appareil_, octets.data() + 1, octets.size() - 1, ms);
    if (lus < 0) Oublie();
    if (lus != std::ssize(octets) - 1) return LectureEchouee;
    std::copy(octets.begin() + 1, octets.end(), tampon.begin() + 1);
    return Reussi;
  }

  void Ferme() override {
    Oublie();
    cherche_ = false;
  }

 private:
  // A reply that came after its exchange had been given up must not pass for the next one's.
  bool VideReponses() {
    std::array<std::uint8_t, TailleTampon - 1> ancienne{};
    for (int n = 0; n < ReponsesAnciennes; ++n) {
      const int lus = hid_.lit(appareil_, ancienne.data(), ancienne.size(), 0);
      if (lus <= 0) return lus == 0;
    }
    return true;
  }

  void Cherche() {
    const std::int64_t maintenant = horloge_();
    if (cherche_ && maintenant - derniere_ < EntreRecherches) return;
    cherche_ = true;
    derniere_ = maintenant;
    absence_ = Absente;
    for (const AppareilUsb& a : hid_.liste(identite_)) {
      appareil_ = hid_.ouvre(a.chemin);
      if (appareil_ != nullptr) return;
      absence_ = SansDroit;  // it is there, and it can't be had
    }
  }

  void Oublie() {
    if (appareil_ != nullptr) hid_.ferme(appareil_);
    appareil_ = nullptr;
    absence_ = Absente;
  }

  IdentiteUsb identite_;
  std::function<std::int64_t()> horloge_;
  FonctionsHid hid_;
  Verrou verrou_;
  void* appareil_ = nullptr;
  std::int32_t absence_ = Absente;
  bool cherche_ = false;
  std::int64_t derniere_ = 0;
};

bool LitHexadecimal(std::string_view texte, std::uint16_t& nombre) {
  if (texte.size() != 4) return false;
  const auto [fin, erreur] = std::from_chars(texte.data(), texte.data() + texte.size(), nombre, 16);
  return erreur == std::errc{} && fin == texte.data() + texte.size();
}

}  // namespace

std::optional<IdentiteUsb> LitIdentiteUsb(std::string_view texte) {
  IdentiteUsb identite;
  if (texte.size() != 9 || texte[4] != ':' || !LitHexadecimal(texte.substr(0, 4), identite.vendeur) ||
      !LitHexadecimal(texte.substr(5), identite.produit) || identite == IdentiteUsb{}) {
    return std::nullopt;
  }
  return identite;
}

std::string RegleUdev(IdentiteUsb identite) {
  char regle[256];
  std::snprintf(
      regle, sizeof regle,
      "# The board %04x:%04x, for the user who sits at this machine.\n"
      "KERNEL==\"hidraw*\", SUBSYSTEM==\"hidraw\", ATTRS{idVendor}==\"%04x\", ATTRS{idProduct}==\"%04x\", "
      "TAG+=\"uaccess\"\n",
      identite.vendeur, identite.produit, identite.vendeur, identite.produit);
  return regle;
}

Ouverture LiaisonUsb(IdentiteUsb identite, const std::string& fichierVerrou, std::function<std::int64_t()> horloge,
                     FonctionsHid hid) {
  Verrou verrou;
  if (!verrou.Prend(fichierVerrou)) return {nullptr, Refus::Occupee, fichierVerrou};
  return {std::make_unique<Usb>(identite, std::move(horloge), std::move(hid), std::move(verrou)), Refus::Aucun, ""};
}

Ouverture LiaisonUsb(IdentiteUsb identite, const std::string& fichierVerrou,
                     std::function<std::int64_t()> horloge) {
  return LiaisonUsb(identite, fichierVerrou, std::move(horloge), Hidapi());
}

}  // namespace zenikcom
