// Requests into the virtual board: any letters with any bytes at any moment. Whatever comes, a reply comes back,
// the status holds together, and what was stopped or cleared never moves again.
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <memory>

#include "closed/CarteVirtuelle.h"
#include "closed/ZenikCom.h"

namespace {

using namespace zenikcom;

void Exige(bool condition) {
  if (!condition) std::abort();
}

class Octets {
 public:
  Octets(const std::uint8_t* donnees, std::size_t taille) : ou_(donnees), reste_(taille) {}
  [[nodiscard]] bool Fini() const { return reste_ == 0; }
  std::uint8_t Un() {
    if (reste_ == 0) return 0;
    --reste_;
    return *ou_++;
  }

 private:
  const std::uint8_t* ou_;
  std::size_t reste_;
};

std::int64_t Lit(const TamponOctets& t, std::size_t i, std::size_t n) {
  std::int64_t v = 0;
  for (std::size_t k = 0; k < n; ++k) v |= std::int64_t{t[i + k]} << 8 * k;
  return v;
}

void VerifieEtat(const TamponOctets& t, const CompteursCarte& c, bool liste) {
  const bool enCours = (t[7] & 1U) != 0;
  Exige(t[12] == 0 || t[12] == 2 || t[12] == 66 || t[12] == 128);
  Exige(enCours == (t[12] == 0));
  Exige(((t[7] & 2U) != 0) == (t[12] == 66));
  Exige(Lit(t, 4, 3) == (c.commences & 0xFFFFFF));
  if (!liste) Exige(c.commences <= c.acceptes);
  const auto reste = static_cast<std::int32_t>(static_cast<std::uint32_t>(Lit(t, 13, 4)));
  Exige(reste >= -1);
  Exige(c.remplissage >= 0 && c.remplissage <= 8 + 1);
  Exige(c.ticks >= 0 && c.ticksFamine >= 0 && c.secondes >= 0);
}

// Gives the number of the exchange for which it has ordered a fault, or 0.
std::int64_t Operateur(CarteVirtuelle& carte, Octets& octets, bool liste) {
  const std::uint8_t quoi = octets.Un();
  const std::int64_t suivant = carte.Compteurs().echanges + 1;
  switch (quoi % 6) {
    case 0:
      carte.Appuie(octets.Un());
      break;
    case 1:
      carte.FinDeCourse(octets.Un() % 2 == 0);
      break;
    case 2:
      carte.Rapide(octets.Un() % 2 == 0);
      break;
    case 3:
      // An axis that is told every edge takes its time for the billion of them that a stored record can hold.
      if (!liste) carte.Modele({ModeleAxe{100.0 * octets.Un(), 100.0 * octets.Un(), octets.Un()}, {}, {}});
      break;
    case 4:
      carte.Fautes({{suivant, static_cast<GenreFaute>(octets.Un() % 5), 0}});
      return suivant;
    default:
      carte.Place({octets.Un(), octets.Un(), octets.Un()});
  }
  return 0;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  constexpr std::array Lettres{'D', 'I', 'B', 'S', 'P', 'M', 'G', 'L', 'T', 'F', 'E', 'W', 'R', 'Y', 'Z', 'V', '?'};
  Octets octets(donnees, taille);
  std::int64_t heure = 0;
  ConditionsCarte conditions;
  conditions.horloge = [&heure] { return heure; };
  conditions.attend = [&heure](std::int64_t ns) { heure += ns; };
  conditions.capacite = 8;
  const auto carte = CreeCarteVirtuelle(conditions);
  const auto liaison = LiaisonVirtuelle(carte);
  TamponOctets t{};
  bool liste = false;
  std::int64_t faute = 0;
  while (!octets.Fini()) {
    const std::uint8_t ordre = octets.Un();
    if (ordre >= 230) {
      faute = std::max(faute, Operateur(*carte, octets, liste));
      continue;
    }
    if (ordre >= 180) {
      heure += std::int64_t{octets.Un()} << (ordre - 180) % 36;
      continue;
    }
    t[1] = static_cast<std::uint8_t>(Lettres[ordre % Lettres.size()]);
    const std::size_t n = octets.Un() % 36;
    for (std::size_t i = 0; i < n; ++i) t[2 + i] = octets.Un();
    if (t[1] == 'D') t[6] = t[10] = t[14] = t[18] = t[9] = t[13] = t[17] = 0;
    if (t[1] == 'B' && t[2] == 2) {
      liste = true;
      carte->Modele({});
    }
    const Axes3 avant = carte->Lieu();
    const EtatCarte etatAvant = carte->Compteurs().etat;
    std::int32_t mode = 0;
    const bool statut = t[1] == 'I' && carte->Compteurs().echanges + 1 != faute;
    Exige(liaison->Envoie(t, mode) == Reussi || !statut);
    const CompteursCarte c = carte->Compteurs();
    if (etatAvant == EtatCarte::Arretee || etatAvant == EtatCarte::Fini) Exige(carte->Lieu() == avant);
    if (statut) VerifieEtat(t, c, liste);
  }
  Exige(!carte->Parcours().empty());
  return 0;
}
