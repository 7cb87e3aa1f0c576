#include "app/cli/JournalFil.h"

#include <cerrno>
#include <cstdio>
#include <system_error>
#include <utility>

#include "core/Services.h"

namespace ovelin::cli {

namespace {

class LiaisonNotee final : public zenikcom::Liaison {
 public:
  LiaisonNotee(std::unique_ptr<zenikcom::Liaison> liaison, JournalFil& journal)
      : liaison_(std::move(liaison)), journal_(journal) {}

  std::int32_t EstConnectee() override { return liaison_->EstConnectee(); }
  std::int32_t Envoie(zenikcom::TamponOctets& tampon, std::int32_t& modeEnvoi) override {
    if (numero_ == 0) debut_ = Svc.Horloge();
    journal_.Note(++numero_, Svc.Horloge() - debut_, '>', tampon);
    const std::int32_t resultat = liaison_->Envoie(tampon, modeEnvoi);
    journal_.Note(numero_, Svc.Horloge() - debut_, '<', tampon, " " + std::to_string(resultat));
    return resultat;
  }
  void Ferme() override { liaison_->Ferme(); }

 private:
  std::unique_ptr<zenikcom::Liaison> liaison_;
  JournalFil& journal_;
  long numero_ = 0;
  double debut_ = 0;
};

std::string Raison() { return std::generic_category().message(errno); }

}  // namespace

JournalFil::~JournalFil() { Ferme(); }

std::string JournalFil::Ouvre(const std::string& chemin) {
  fichier_ = std::fopen(chemin.c_str(), "we");
  return fichier_ == nullptr ? Raison() : "";
}

std::string JournalFil::Ferme() {
  if (fichier_ == nullptr) return "";
  const bool faux = std::ferror(fichier_) != 0;
  const bool ferme = std::fclose(std::exchange(fichier_, nullptr)) == 0;
  return faux || !ferme ? Raison() : "";
}

std::unique_ptr<zenikcom::Liaison> JournalFil::Enveloppe(std::unique_ptr<zenikcom::Liaison> liaison) {
  if (fichier_ == nullptr) return liaison;
  return std::make_unique<LiaisonNotee>(std::move(liaison), *this);
}

void JournalFil::Note(long numero, double secondes, char sens, const zenikcom::TamponOctets& octets,
                      const std::string& suite) {
  if (fichier_ == nullptr) return;
  std::fprintf(fichier_, "%6ld %12.6f %c", numero, secondes, sens);
  for (const std::uint8_t octet : octets) std::fprintf(fichier_, " %02X", octet);
  std::fprintf(fichier_, "%s\n", suite.c_str());
}

}  // namespace ovelin::cli
