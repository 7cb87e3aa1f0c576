#include "closed/zenikcom/Hidapi.h"

#include <hidapi/hidapi.h>

#include <algorithm>
#include <tuple>

namespace zenikcom {

namespace {

// UTF-8 of a text of the device, which may hold anything.
std::string Utf8(const wchar_t* texte) {
  std::string octets;
  for (; texte != nullptr && *texte != 0; ++texte) {
    const auto c = static_cast<char32_t>(*texte);
    if (c < 32 || c == 127 || (c >= 0xD800 && c < 0xE000) || c > 0x10FFFF) continue;
    const auto suite = [&octets](std::uint32_t bits) { octets += static_cast<char>(0x80U | (bits & 0x3FU)); };
    if (c < 0x80) {
      octets += static_cast<char>(c);
    } else if (c < 0x800) {
      octets += static_cast<char>(0xC0U | c >> 6U);
      suite(c);
    } else if (c < 0x10000) {
      octets += static_cast<char>(0xE0U | c >> 12U);
      suite(c >> 6U);
      suite(c);
    } else {
      octets += static_cast<char>(0xF0U | c >> 18U);
      suite(c >> 12U);
      suite(c >> 6U);
      suite(c);
    }
  }
  return octets;
}

std::vector<AppareilUsb> Liste(IdentiteUsb identite) {
  std::vector<AppareilUsb> appareils;
  hid_device_info* const premier = hid_enumerate(identite.vendeur, identite.produit);
  for (const hid_device_info* d = premier; d != nullptr; d = d->next) {
    appareils.push_back({{d->vendor_id, d->product_id},
                         d->path == nullptr ? "" : d->path,
                         Utf8(d->manufacturer_string),
                         Utf8(d->product_string),
                         Utf8(d->serial_number)});
  }
  hid_free_enumeration(premier);
  std::sort(appareils.begin(), appareils.end(), [](const AppareilUsb& a, const AppareilUsb& b) {
    return std::tie(a.identite.vendeur, a.identite.produit, a.chemin) <
           std::tie(b.identite.vendeur, b.identite.produit, b.chemin);
  });
  return appareils;
}

hid_device* Appareil(void* a) { return static_cast<hid_device*>(a); }

}  // namespace

FonctionsHid Hidapi() {
  FonctionsHid hid;
  hid.liste = Liste;
  hid.ouvre = [](const std::string& chemin) -> void* { return hid_open_path(chemin.c_str()); };
  hid.ferme = [](void* a) { hid_close(Appareil(a)); };
  hid.ecrit = [](void* a, const std::uint8_t* octets, std::size_t n) { return hid_write(Appareil(a), octets, n); };
  hid.lit = [](void* a, std::uint8_t* octets, std::size_t n, int ms) {
    return hid_read_timeout(Appareil(a), octets, n, ms);
  };
  return hid;
}

std::vector<AppareilUsb> AppareilsUsb() { return Liste({}); }

}  // namespace zenikcom
