#include "closed/zenikcom/virtual/Memoire.h"

#include <algorithm>

#include "base/Texte.h"

namespace zenikcom {

namespace {

constexpr std::string_view Marque = "ZENIKV1\n";
constexpr std::size_t OctetsTables = NbTables * NbPartiesTable * OctetsPartie;
constexpr std::size_t OctetsEntete = Marque.size() + 1 + OctetsTables + 4, OctetsSomme = 4;

// CRC-32 of IEEE 802.3.
std::uint32_t Somme(std::string_view octets) {
  static const auto Table = [] {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t i = 0; i < 256; ++i) {
      std::uint32_t c = i;
      for (int bit = 0; bit < 8; ++bit) c = (c & 1U) != 0 ? 0xEDB88320U ^ c >> 1U : c >> 1U;
      table[i] = c;
    }
    return table;
  }();
  std::uint32_t c = 0xFFFFFFFFU;
  for (const char octet : octets) c = Table[(c ^ base::Octet(octet)) & 0xFFU] ^ c >> 8U;
  return ~c;
}

void Ajoute32(std::string& octets, std::uint32_t v) {
  for (unsigned i = 0; i < 32; i += 8) octets += static_cast<char>(v >> i & 0xFFU);
}

std::uint32_t Lit32(std::string_view octets, std::size_t i) {
  std::uint32_t v = 0;
  for (unsigned n = 0; n < 4; ++n) v |= std::uint32_t{base::Octet(octets[i + n])} << 8 * n;
  return v;
}

bool Vide(const std::vector<std::uint8_t>& bloc) {
  return std::all_of(bloc.begin(), bloc.end(), [](std::uint8_t o) { return o == 255; });
}

}  // namespace

Memoire::Memoire() : tables{} {
  for (Table& table : tables) {
    for (Partie& partie : table) partie.fill(255);
  }
}

Cadences Memoire::CadencesDuDefaut() const {
  // By the place in the first part: 8 characters of the name, the multiplier in byte 27, the slope in byte 28.
  const Partie& partie = tables[std::min<std::size_t>(defaut, NbTables - 1)][0];
  const bool vide = std::all_of(partie.begin(), partie.begin() + 8,
                                [](std::uint8_t o) { return o == ' ' || o == 0 || o == 255; });
  return vide ? Cadences(1, 5) : Cadences(partie[27 - 4], partie[28 - 4]);
}

void Memoire::EffaceBloc(std::size_t bloc) {
  if (bloc < NbBlocsFlash) blocs[bloc].clear();
}

bool Memoire::EcritPage(std::size_t bloc, std::size_t adresse, std::span<const std::uint8_t> octets) {
  if (bloc >= NbBlocsFlash) return false;
  std::vector<std::uint8_t>& b = blocs[bloc];
  if (b.empty()) b.assign(OctetsBloc, 255);
  bool juste = true;
  for (std::size_t i = 0; i < octets.size(); ++i) {
    std::uint8_t& octet = b[(adresse + i) % OctetsBloc];
    octet &= octets[i];
    juste = juste && octet == octets[i];
  }
  return juste;
}

std::uint8_t Memoire::Octet(std::size_t bloc, std::size_t adresse) const {
  if (bloc >= NbBlocsFlash || blocs[bloc].empty()) return 255;
  return blocs[bloc][adresse % OctetsBloc];
}

std::string Memoire::Octets() const {
  std::string octets(Marque);
  octets += static_cast<char>(defaut);
  for (const Table& table : tables) {
    for (const Partie& partie : table) octets.append(partie.begin(), partie.end());
  }
  std::uint32_t presents = 0;
  for (std::size_t i = 0; i < NbBlocsFlash; ++i) presents |= Vide(blocs[i]) ? 0U : 1U << i;
  Ajoute32(octets, presents);
  for (std::size_t i = 0; i < NbBlocsFlash; ++i) {
    if ((presents >> i & 1U) != 0) octets.append(blocs[i].begin(), blocs[i].end());
  }
  Ajoute32(octets, Somme(octets));
  return octets;
}

std::optional<Memoire> Memoire::Lit(std::string_view octets, std::string& raison) {
  const auto refuse = [&raison](const char* pourquoi) -> std::optional<Memoire> {
    raison = pourquoi;
    return std::nullopt;
  };
  if (!octets.starts_with(Marque)) return refuse("not a file of the virtual board");
  if (octets.size() < OctetsEntete + OctetsSomme) return refuse("cut off");
  const std::uint32_t presents = Lit32(octets, OctetsEntete - 4);
  std::size_t taille = OctetsEntete + OctetsSomme;
  for (std::size_t i = 0; i < NbBlocsFlash; ++i) taille += (presents >> i & 1U) != 0 ? OctetsBloc : 0;
  if (octets.size() < taille) return refuse("cut off");
  if (octets.size() > taille) return refuse("longer than it says");
  if (Somme(octets.substr(0, taille - OctetsSomme)) != Lit32(octets, taille - OctetsSomme)) {
    return refuse("wrong checksum");
  }
  Memoire memoire;
  const auto* lu = reinterpret_cast<const std::uint8_t*>(octets.data()) + Marque.size();
  memoire.defaut = *lu++;
  if (memoire.defaut >= NbTables) return refuse("no such default table");
  for (Table& table : memoire.tables) {
    for (Partie& partie : table) {
      std::copy_n(lu, OctetsPartie, partie.begin());
      lu += OctetsPartie;
    }
  }
  lu += 4;
  for (std::size_t i = 0; i < NbBlocsFlash; ++i) {
    if ((presents >> i & 1U) == 0) continue;
    memoire.blocs[i].assign(lu, lu + OctetsBloc);
    lu += OctetsBloc;
  }
  return memoire;
}

LecteurListe::LecteurListe(const Memoire& memoire, std::uint8_t bloc, std::size_t taille)
    : memoire_(&memoire),
      adresse_(bloc * OctetsBloc),
      fin_(taille > 0 ? adresse_ + taille : NbBlocsFlash * OctetsBloc) {}

bool LecteurListe::operator()(Record& record) {
  std::array<std::uint8_t, OctetsAvecRampe> octets{};
  std::size_t n = 0;
  for (; n < octets.size() && adresse_ + n < fin_; ++n) {
    octets[n] = memoire_->Octet((adresse_ + n) / OctetsBloc, (adresse_ + n) % OctetsBloc);
  }
  if (LitRecord(std::span(octets).first(n), record) != Lecture::Record) return false;
  adresse_ += record.rampe ? OctetsAvecRampe : OctetsSansRampe;
  return true;
}

}  // namespace zenikcom
