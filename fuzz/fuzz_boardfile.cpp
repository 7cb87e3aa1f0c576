// A file of the virtual board: whatever the bytes, it is refused with a reason or read whole; what was read comes
// back from its own bytes. And a list that lies in the flash memory ends, whatever it is. An odd first byte puts
// the right checksum behind the rest, so that what stands before it is reached at all.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>

#include "closed/zenikcom/virtual/Memoire.h"

namespace {

using namespace zenikcom;

void Exige(bool condition) {
  if (!condition) std::abort();
}

void AjouteSomme(std::string& octets) {
  std::uint32_t c = 0xFFFFFFFFU;
  for (const char octet : octets) {
    c ^= static_cast<std::uint8_t>(octet);
    for (int bit = 0; bit < 8; ++bit) c = c >> 1U ^ ((c & 1U) != 0 ? 0xEDB88320U : 0U);
  }
  c = ~c;
  for (unsigned i = 0; i < 32; i += 8) octets += static_cast<char>(c >> i & 0xFFU);
}

void LitListe(const Memoire& memoire) {
  LecteurListe liste(memoire, 0, 0);
  Record record;
  std::size_t nombre = 0;
  while (liste(record)) {
    Exige(record.ticks > 0);
    Exige(++nombre <= NbBlocsFlash * OctetsBloc / OctetsSansRampe);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  if (taille == 0) return 0;
  std::string octets(reinterpret_cast<const char*>(donnees) + 1, taille - 1);
  if (donnees[0] % 2 != 0) AjouteSomme(octets);
  std::string raison;
  if (const auto memoire = Memoire::Lit(octets, raison)) {
    const auto relu = Memoire::Lit(memoire->Octets(), raison);
    Exige(relu.has_value() && relu->Octets() == memoire->Octets());
    Exige(memoire->CadencesDuDefaut().Periode(NiveauPlein) > 0);
    LitListe(*memoire);
  } else {
    Exige(!raison.empty());
  }
  Memoire memoire;
  for (std::size_t i = 0; i < std::min<std::size_t>(taille, 4096); i += OctetsPage) {
    memoire.EcritPage(0, i, std::span(donnees + i, std::min(OctetsPage, taille - i)));
  }
  LitListe(memoire);
  return 0;
}
