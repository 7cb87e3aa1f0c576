// The board's flash memory: a job is stored here, to run without the computer.
#include <algorithm>
#include <array>
#include <cstddef>

#include "base/Indices.h"
#include "base/Texte.h"
#include "controller/ClsCdeZENIK.h"
#include "core/Nombres.h"
#include "core/Services.h"

namespace ovelin {

namespace {

constexpr std::size_t OctetsPage = 32;
constexpr std::uint32_t OctetsBloc = 65'536;  // of flash memory
constexpr std::uint8_t Efface = 255;          // what an erased byte holds
constexpr std::uint8_t Confirme = 255;        // byte 2 of the answer to a write

std::uint8_t OctetHaut(std::uint16_t mot) { return static_cast<std::uint8_t>(mot >> 8U); }
std::uint8_t OctetBas(std::uint16_t mot) { return static_cast<std::uint8_t>(mot & 0xFFU); }

}  // namespace

bool ClsCdeZENIK::Ordre(char lettre, std::initializer_list<std::uint8_t> octets) {
  Tampon[1] = base::Octet(lettre);
  std::copy(octets.begin(), octets.end(), Tampon.begin() + 2);
  std::int32_t modeEnvoi = 0;
  return EnvoiCommande(modeEnvoi);
}

std::string ClsCdeZENIK::FlashModel() {
  Ordre('F', {});
  std::string modele;
  for (std::size_t i = 2; i <= 5; ++i) modele += Formate(Tampon[i], "00");
  return modele;
}

bool ClsCdeZENIK::Flash_Model() { return Ordre('F', {}) && Tampon[2] < Efface; }

bool ClsCdeZENIK::Flash_Erase(std::uint8_t bloc) {
  Ordre('E', {bloc});
  return false;
}

bool ClsCdeZENIK::Flash_Write(std::uint8_t bloc, std::uint16_t adresse, std::span<const std::uint8_t> octets) {
  std::copy_n(octets.begin(), std::min(octets.size(), OctetsPage), Tampon.begin() + 5);
  return Ordre('W', {bloc, OctetHaut(adresse), OctetBas(adresse)}) && Tampon[2] == Confirme;
}

bool ClsCdeZENIK::Flash_Read(std::uint8_t bloc, std::uint16_t adresse, std::span<std::uint8_t, 32> octets) {
  const bool lue = Ordre('R', {bloc, OctetHaut(adresse), OctetBas(adresse)});
  std::copy_n(Tampon.begin() + 5, octets.size(), octets.begin());
  return lue;
}

// A block takes one page more than its size says: its address comes round to the beginning, so the callers refuse a
// list that long. A list of whole pages still gets a last page of 255.
void ClsCdeZENIK::Flash_Tab(std::span<const std::uint8_t> octets) {
  PagesNonConfirmees = base::Compte(octets.size() / OctetsPage + 1);
  std::array<std::uint8_t, OctetsPage> page{};
  std::uint8_t bloc = 0;
  std::uint32_t adresse = 0;
  Flash_Erase(bloc);
  for (std::size_t ecrits = 0;; ecrits += OctetsPage) {
    const auto reste = octets.subspan(ecrits);
    page.fill(Efface);
    std::copy_n(reste.begin(), std::min(reste.size(), OctetsPage), page.begin());
    if (Flash_Write(bloc, static_cast<std::uint16_t>(adresse & 0xFFFFU), page)) {
      --PagesNonConfirmees;
    } else if (!IsAvailable()) {
      return;
    }
    if (reste.size() < OctetsPage) return;
    Svc.LaisseEvenements(Evenements::Tous);
    adresse += OctetsPage;
    if (adresse > OctetsBloc) {
      ++bloc;
      adresse = 0;
      Flash_Erase(bloc);
    }
  }
}

}  // namespace ovelin
