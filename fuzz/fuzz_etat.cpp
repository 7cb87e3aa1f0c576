// Replies into the class that speaks to the board: those of the virtual board, any bytes of them changed, exchanges
// lost before and behind it, the link pulled. Whatever comes, each command ends, the count of records never falls
// nor passes those that were accepted, the place stays within the row that runs, and steps and millimetres agree.
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "closed/CarteVirtuelle.h"
#include "closed/ZenikCom.h"
#include "controller/ClsCdeZENIK.h"
#include "core/Etat.h"
#include "core/PlanCourant.h"
#include "core/RunCourant.h"
#include "core/Services.h"
#include "machine/TableCourante.h"

namespace {

using namespace ovelin;
using zenikcom::TamponOctets;

void Exige(bool condition) {
  if (!condition) std::abort();
}

class Octets {
 public:
  Octets(const std::uint8_t* donnees, std::size_t taille) : ou_(donnees), reste_(taille) {}
  [[nodiscard]] bool Fini() const { return reste_ == 0; }
  [[nodiscard]] std::size_t Reste() const { return reste_; }
  std::uint8_t Un() {
    if (reste_ == 0) return 0;
    --reste_;
    return *ou_++;
  }
  std::int32_t Quatre() {
    std::uint32_t v = 0;
    for (unsigned i = 0; i < 32; i += 8) v |= static_cast<std::uint32_t>(Un()) << i;
    return static_cast<std::int32_t>(v);
  }

 private:
  const std::uint8_t* ou_;
  std::size_t reste_;
};

struct Monde {
  explicit Monde(Octets& source) : octets(source) {}
  Octets& octets;
  std::int64_t heure = 1'000'000'000;  // ns
  std::int64_t absenteDepuis = -1;     // ns; the link has been pulled
  std::int64_t echanges = 0;
  bool ouvert = false;  // a job of this program: outside it the board may count what it likes
  bool arrete = false;  // a reply said that the job was stopped: its place is followed no further
};

// The virtual board behind a line that changes what comes back.
class LiaisonTroublee final : public zenikcom::Liaison {
 public:
  LiaisonTroublee(std::unique_ptr<zenikcom::Liaison> carte, Monde& monde)
      : carte_(std::move(carte)), monde_(monde) {}
  std::int32_t EstConnectee() override { return monde_.absenteDepuis < 0 ? 1 : 0; }
  std::int32_t Envoie(TamponOctets& tampon, std::int32_t& mode) override {
    ++monde_.echanges;
    if (monde_.absenteDepuis >= 0) return zenikcom::Absente;
    const std::uint8_t quoi = monde_.octets.Un();
    if (quoi == 255) {
      monde_.absenteDepuis = monde_.heure;
      return zenikcom::Absente;
    }
    if (quoi == 254) return zenikcom::EcritureEchouee;
    if (quoi == 253) {
      TamponOctets perdu = tampon;
      carte_->Envoie(perdu, mode);
      return zenikcom::LectureEchouee;
    }
    if (quoi == 252) return zenikcom::NonVerrouille;
    const std::int32_t resultat = carte_->Envoie(tampon, mode);
    for (int i = 0; i < std::max(0, quoi - 200); ++i) {
      const std::uint8_t ou = monde_.octets.Un();
      tampon[ou % tampon.size()] = monde_.octets.Un();
    }
    if ((tampon[12] & 66U) == 66) monde_.arrete = true;
    return resultat;
  }
  void Ferme() override { carte_->Ferme(); }

 private:
  std::unique_ptr<zenikcom::Liaison> carte_;
  Monde& monde_;
};

void Services1(Monde& monde) {
  Svc.Montre = [&monde](const BoiteMessage& boite) {
    Exige(!boite.texte.empty());
    return monde.octets.Un() % 2 == 0 ? Reponse::Oui : Reponse::Non;
  };
  Svc.OuvreFenetre = [](const std::string&) { return std::nullopt; };
  Svc.LaisseEvenements = [&monde](Evenements) { monde.heure += 1'000'000; };
  Svc.Horloge = [&monde] { return static_cast<double>(monde.heure) * 1e-9; };
  Svc.Attend = [&monde](double s) { monde.heure += static_cast<std::int64_t>(s * 1e9); };
}

// Steps of a row: small ones, and now and then any at all.
std::int32_t Pas(Octets& octets) {
  const std::uint8_t petit = octets.Un();
  return petit == 255 ? octets.Quatre() : petit - 120;
}

void Memoires(Octets& octets) {
  std::array<std::uint8_t, 32> page{};
  switch (octets.Un() % 8) {
    case 0:
      CdeZENIK->TableVerif();
      break;
    case 1:
      CdeZENIK->SuitTable();
      break;
    case 2:
      CdeZENIK->Flash_Tab(std::vector<std::uint8_t>(octets.Un(), 7));
      Exige(CdeZENIK->PagesNonConfirmees >= 0);
      break;
    case 3:
      CdeZENIK->Flash_Read(octets.Un(), 64, page);
      break;
    case 4:
      Exige(!CdeZENIK->KR4400_Version().empty());
      break;
    case 5:
      CdeZENIK->KR4400_Send_Data(8448 + octets.Un() % 8, octets.Un());
      break;
    case 6:
      Exige(!CdeZENIK->FlashModel().empty());
      break;
    default:
      CdeZENIK->DemandeVersion();
      Exige(CdeZENIK->ChauffeLire().size() == 4);
  }
}

void Commande(Octets& octets) {
  const auto dX = Pas(octets), dY = Pas(octets), dZ = Pas(octets);
  float v = static_cast<float>(octets.Un()) / 4;
  float t = 0;
  CdeZENIK->CommandeDATA(dX, dY, dZ, v, t, octets.Un() % 16 == 0);
}

void Ordonne(Monde& monde) {
  Octets& octets = monde.octets;
  switch (octets.Un() % 12) {
    case 0:
      monde.ouvert = CdeZENIK->EnvoiUSB();
      monde.arrete = false;
      break;
    case 1:
      monde.ouvert = CdeZENIK->EnvoiFLASH(0, 0);
      monde.arrete = false;
      break;
    case 2:
    case 3:
    case 4:
      return Commande(octets);
    case 5:
      CdeZENIK->CommandeDATAend();
      break;
    case 6:
      CdeZENIK->GoBuffer();
      break;
    case 7:
      CdeZENIK->StopResume(octets.Un() % 2, CdeZENIK->Calc_FDEC());
      break;
    case 8:
      CdeZENIK->IsStepProcessed();
      CdeZENIK->Touche();
      break;
    case 9:
      monde.ouvert = false;  // the buffer is cleared for the memories
      return Memoires(octets);
    default:
      CdeZENIK->DemandeInformation();
  }
}

// What holds between two commands of one job.
class Gardien {
 public:
  void Regarde(bool ouvert, bool arrete) {
    const ClsCdeZENIK& c = *CdeZENIK;
    if (ouvert && ouvert_ && c.NbBlocsTraites < blocs_) Exige(c.NbBlocsTraites == 0);
    ouvert_ = ouvert;
    blocs_ = c.NbBlocsTraites;
    Exige(c.Analog1 <= 100 && c.Analog2 <= 100);
    Exige(c.PosX == c.Pas_mm_X(c.PasX) && c.PosY == c.Pas_mm_Y(c.PasY) && c.PosZ == c.Pas_mm_Z(c.PasZ));
    Exige(NbDeplacements < static_cast<std::int32_t>(std::max<std::size_t>(TableDecoupe.size(), 1)));
    if (!ouvert || arrete || blocs_ < 1 || blocs_ > NbDeplacements || c.FinDeCourse != Faux) return;
    const Deplacement& ligne = TableDecoupe[static_cast<std::size_t>(blocs_)];
    Entre(c.PasX, c.PasDebutX, ligne.dX);
    Entre(c.PasY, c.PasDebutY, ligne.dY);
    Entre(c.PasZ, c.PasDebutZ, ligne.dZ);
  }

 private:
  // A row that is done stands at its end, which then is where the next one begins.
  static void Entre(std::int32_t pas, std::int32_t debut, std::int32_t ecart) {
    const std::int64_t a = debut, b = a + ecart;
    if (a == pas) return;
    using Bornes = std::numeric_limits<std::int32_t>;
    if (b > Bornes::max() || b < Bornes::min()) return;
    Exige(std::min(a, b) <= pas && pas <= std::max(a, b));
  }
  std::int32_t blocs_ = 0;
  bool ouvert_ = false;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  RemetTout();
  Octets octets(donnees, taille);
  Monde monde(octets);
  Services1(monde);
  zenikcom::ConditionsCarte conditions;
  conditions.horloge = [&monde] { return monde.heure; };
  conditions.attend = [&monde](std::int64_t ns) { monde.heure += ns; };
  conditions.rapide = octets.Un() % 4 != 0;
  conditions.capacite = 8;
  const auto carte = zenikcom::CreeCarteVirtuelle(conditions);
  CdeZENIK =
      std::make_unique<ClsCdeZENIK>(std::make_unique<LiaisonTroublee>(zenikcom::LiaisonVirtuelle(carte), monde));
  CdeZENIK->ChargeParametres();
  VitesseMaxX = VitesseMaxY = VitesseMaxZ = 15;
  ClavierZENIK = 1;
  Gardien gardien;
  while (!octets.Fini()) {
    if (octets.Un() % 8 == 0) monde.heure += std::int64_t{octets.Un()} * 20'000'000;
    const std::int64_t debut = monde.heure, echanges = monde.echanges;
    const std::size_t reste = octets.Reste();
    Ordonne(monde);
    Exige(monde.echanges - echanges < 60'000 + static_cast<std::int64_t>(reste));
    // 2 s without the link, the pause of a last try, the waits of the programming lines.
    if (monde.absenteDepuis >= 0) {
      Exige(monde.heure - std::max(debut, monde.absenteDepuis) < 2'100'000'000);
      if (octets.Un() % 4 == 0) monde.absenteDepuis = -1;
    }
    gardien.Regarde(monde.ouvert, monde.arrete);
  }
  CdeZENIK = std::make_unique<ClsCdeZENIK>();
  return 0;
}
